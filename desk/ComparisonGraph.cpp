// SPDX-License-Identifier: GPL-3.0-or-later
#include "ComparisonGraph.h"

#include "engine/CreatePluginFilter.h"

namespace desk
{
namespace
{

/** Fills `block` from `position` on, with silence outside `source` and for no position. */
void fetch (const juce::AudioSampleBuffer& source, std::optional<juce::int64> position, juce::AudioSampleBuffer& block)
{
    block.clear();

    if (! position.has_value() || *position >= source.getNumSamples())
        return;

    const auto start = static_cast<int> (*position);
    const auto count = std::min (block.getNumSamples(), source.getNumSamples() - start);

    for (int channel = 0; channel < std::min (block.getNumChannels(), source.getNumChannels()); ++channel)
        block.copyFrom (channel, 0, source, channel, start, count);
}

}   // namespace

/** Tells the comparator where the block stands; set and asked on the thread that processes. */
class ComparisonGraph::PlayHead : public juce::AudioPlayHead
{
public:
    explicit PlayHead (int hertz) : sampleRate (hertz) {}

    void setPosition (std::optional<juce::int64> newPosition) { position = newPosition; }

    juce::Optional<PositionInfo> getPosition() const override
    {
        PositionInfo info;
        info.setIsPlaying (position.has_value());
        info.setTimeInSamples (position.value_or (0));
        info.setTimeInSeconds (static_cast<double> (position.value_or (0)) / sampleRate);
        return info;
    }

private:
    const double sampleRate;
    std::optional<juce::int64> position;
};

ComparisonGraph::ComparisonGraph (const Material& materialToPlay) :
    material (materialToPlay), playHead (std::make_unique<PlayHead> (material.getSampleRate())),
    sender (material.b.name), comparator (createPluginFilter (OxJuceProcessorBase::typeVst3)),
    senderBlock (material.b.audio.getNumChannels(), kBlockSize)
{
    // The pod stands before the comparator looks for one.
    sender.prepare (material.b.audio.getNumChannels(), kBlockSize);

    const auto rate = static_cast<double> (material.getSampleRate());
    comparator->setPlayConfigDetails (getNumChannels(), getNumChannels(), rate, kBlockSize);
    comparator->setPlayHead (playHead.get());
    comparator->prepareToPlay (rate, kBlockSize);
}

ComparisonGraph::~ComparisonGraph()
{
    comparator->releaseResources();
    comparator->setPlayHead (nullptr);
}

void ComparisonGraph::process (juce::AudioSampleBuffer& output, std::optional<juce::int64> position)
{
    juce::AudioSampleBuffer block (senderBlock.getArrayOfWritePointers(), senderBlock.getNumChannels(),
                                   output.getNumSamples());
    fetch (material.b.audio, position, block);
    sender.process (block, position);

    fetch (material.a.audio, position, output);
    playHead->setPosition (position);
    comparator->processBlock (output, noMidi);
}

void ComparisonGraph::writeParameter (duoJudge::ParamId id, float value)
{
    comparator->setParamUndoable (id, value, true);
}

void ComparisonGraph::drawSource()
{
    comparator->drawSource();
}

void ComparisonGraph::runTimers()
{
    comparator->timerCallback();
}

juce::AudioProcessorEditor* ComparisonGraph::createEditor()
{
    return comparator->createEditorIfNeeded();
}

float ComparisonGraph::readParameter (duoJudge::ParamId id) const
{
    return comparator->parameter (id).value;
}

VoteStatistics ComparisonGraph::getVotes() const
{
    return comparator->getVoteStatistics();
}

bool ComparisonGraph::isVoteFading() const
{
    return comparator->isVoteFadeActive();
}

bool ComparisonGraph::isLinked() const
{
    return comparator->getSelectedPodId() != baylink::kNoPod;
}

int ComparisonGraph::getLatency() const
{
    return comparator->getLatencySamples();
}

}   // namespace desk
