// SPDX-License-Identifier: GPL-3.0-or-later
#include "ComparisonGraph.h"

namespace desk
{
namespace
{

constexpr const char* kComparatorBundle = "DuoJudge.vst3";
constexpr const char* kSenderBundle = "BayLinkSend.vst3";

/** Of the comparator, in the order of `Parameter`. */
constexpr const char* kParameterNames[] { "Toggle A and B", "Toggle X and Y",    "Blind Test", "Choose Audio",
                                          "End Test",       "Reveal Statistics", "Resume Test" };

constexpr int kLongestName = 128;

juce::Result load (const juce::File& bundle, std::unique_ptr<juce::AudioPluginInstance>& result)
{
    const auto& path = bundle.getFullPathName();

    if (! bundle.exists())
        return juce::Result::fail ("there is no plug-in " + path + "; --plugins names the folder that holds it");

    juce::VST3PluginFormat format;
    juce::OwnedArray<juce::PluginDescription> found;
    format.findAllTypesForFile (found, path);
    juce::String why;

    // The rate and the block size come with `prepare`.
    if (! found.isEmpty())
        result = format.createInstanceFromDescription (*found.getFirst(), 44100.0, ComparisonGraph::kBlockSize, why);

    return result != nullptr ? juce::Result::ok() : juce::Result::fail ("the plug-in " + path + " does not load");
}

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

/** Tells both plug-ins where the block stands; set and asked on the thread that processes. */
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

juce::Result ComparisonGraph::create (const Material& material, const juce::File& plugins,
                                      std::unique_ptr<ComparisonGraph>& result)
{
    Plugin sender, comparator;

    for (const auto& [bundle, plugin] : { std::pair (kComparatorBundle, &comparator), { kSenderBundle, &sender } })
        if (const auto loaded = load (plugins.getChildFile (bundle), *plugin); loaded.failed())
            return loaded;

    std::unique_ptr<ComparisonGraph> graph (new ComparisonGraph (material, std::move (sender), std::move (comparator)));

    if (const auto found = graph->findParameters(); found.failed())
        return found;

    // The comparator looks for a pod when it is prepared: it stands by then.
    for (auto* const plugin : { graph->sender.get(), graph->comparator.get() })
        if (const auto prepared = graph->prepare (*plugin); prepared.failed())
            return prepared;

    if (const auto linked = graph->checkLink(); linked.failed())
        return linked;

    result = std::move (graph);
    return juce::Result::ok();
}

ComparisonGraph::ComparisonGraph (const Material& materialToPlay, Plugin loadedSender, Plugin loadedComparator) :
    material (materialToPlay), playHead (std::make_unique<PlayHead> (material.getSampleRate())),
    sender (std::move (loadedSender)), comparator (std::move (loadedComparator)),
    senderBlock (material.b.audio.getNumChannels(), kBlockSize)
{
    sender->updateTrackProperties ({ material.b.name, {} });
}

ComparisonGraph::~ComparisonGraph()
{
    for (auto* const plugin : { comparator.get(), sender.get() })
    {
        plugin->releaseResources();
        plugin->setPlayHead (nullptr);
    }
}

juce::File ComparisonGraph::getUserPluginFolder()
{
    return juce::File::getSpecialLocation (juce::File::userHomeDirectory).getChildFile (".vst3");
}

juce::Result ComparisonGraph::findParameters()
{
    const auto& all = comparator->getParameters();

    for (const auto* const name : kParameterNames)
    {
        const auto* const found =
            std::find_if (all.begin(), all.end(),
                          [name] (const auto* parameter) { return parameter->getName (kLongestName) == name; });

        if (found == all.end())
            return juce::Result::fail (juce::String (kComparatorBundle) + " has no parameter \"" + name + "\"");

        parameters.push_back (*found);
    }

    return juce::Result::ok();
}

juce::Result ComparisonGraph::prepare (juce::AudioPluginInstance& plugin)
{
    const auto track = juce::AudioChannelSet::canonicalChannelSet (getNumChannels());

    if (! plugin.setBusesLayout ({ { track }, { track } }))
        return juce::Result::fail (plugin.getName() + " takes no " + track.getDescription().toLowerCase() + " track");

    plugin.setPlayHead (playHead.get());
    plugin.prepareToPlay (material.getSampleRate(), kBlockSize);
    return juce::Result::ok();
}

/** What the comparator would save tells its links: nothing else of them reaches a host. */
juce::Result ComparisonGraph::checkLink()
{
    juce::MemoryBlock saved, state;
    comparator->getStateInformation (saved);
    const auto read = [] (const juce::MemoryBlock& bytes)
    { return juce::AudioProcessor::getXmlFromBinary (bytes.getData(), static_cast<int> (bytes.getSize())); };

    if (const auto wrapped = read (saved))
        state.fromBase64Encoding (wrapped->getChildElementAllSubText ("IComponent", {}));

    const auto xml = read (state);

    if (xml == nullptr || ! xml->hasAttribute ("UNIQUEID"))
        return juce::Result::fail ("the pod manager does not load");

    if (xml->getIntAttribute ("NUMOFLINKEDCONNECTIONS") == 0)
        return juce::Result::fail ("the pod manager does not link the two tracks");

    return juce::Result::ok();
}

void ComparisonGraph::process (juce::AudioSampleBuffer& output, std::optional<juce::int64> position)
{
    const auto numSamples = output.getNumSamples();
    processingThread = juce::Thread::getCurrentThreadId();
    playHead->setPosition (position);

    juce::AudioSampleBuffer block (senderBlock.getArrayOfWritePointers(), senderBlock.getNumChannels(), numSamples);
    fetch (material.b.audio, position, block);
    block.applyGain (juce::Decibels::decibelsToGain (decibels.get()));
    sender->processBlock (block, noMidi);

    fetch (material.a.audio, position, output);
    comparator->processBlock (output, noMidi);
    numProcessed += numSamples;
    numBlocks += 1;
}

void ComparisonGraph::writeParameter (Parameter parameter, float value)
{
    parameters[static_cast<std::size_t> (parameter)]->setValueNotifyingHost (value);
}

void ComparisonGraph::takeInChanges()
{
    constexpr auto period = 17;   // milliseconds, rounded up

    // The toolkit's timers are counted on only after those that were due before have been called.
    for (int turn = 0; turn < 6; ++turn)
    {
        juce::Thread::sleep (period);
        juce::Timer::callPendingTimersSynchronously();
    }
}

float ComparisonGraph::readParameter (Parameter parameter) const
{
    return parameters[static_cast<std::size_t> (parameter)]->getValue();
}

juce::AudioProcessorParameter& ComparisonGraph::getParameter (Parameter parameter)
{
    return *parameters[static_cast<std::size_t> (parameter)];
}

void ComparisonGraph::press (Parameter button)
{
    writeParameter (button, 1.0f);
    outlastBlock();
    writeParameter (button, 0.0f);
}

/** Waits until a block has begun and ended, if blocks run on another thread; not for long, as they may cease. */
void ComparisonGraph::outlastBlock() const
{
    const auto* const thread = processingThread.get();

    if (thread == nullptr || thread == juce::Thread::getCurrentThreadId())
        return;

    constexpr juce::uint32 longestWait = 200;   // milliseconds
    const auto begin = juce::Time::getMillisecondCounter();
    const int blocksBefore = numBlocks;   // the next may be under way

    while (numBlocks - blocksBefore < 2 && juce::Time::getMillisecondCounter() - begin < longestWait)
        juce::Thread::sleep (1);
}

}   // namespace desk
