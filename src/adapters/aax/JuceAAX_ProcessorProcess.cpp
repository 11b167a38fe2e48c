// SPDX-License-Identifier: GPL-3.0-or-later
// Blocks, and the timeline that they lie on.
#include "adapters/aax/JuceAAX_Processor.h"

namespace AAXClasses
{
namespace
{

juce::AudioPlayHead::FrameRateType toFrameRate (AAX_EFrameRate rate)
{
    using Head = juce::AudioPlayHead;
    constexpr std::array rates { Head::fpsUnknown,  Head::fps24, Head::fps25,     Head::fps2997,
                                 Head::fps2997drop, Head::fps30, Head::fps30drop, Head::fps23976 };
    return juce::isPositiveAndBelow (rate, rates.size()) ? rates[static_cast<std::size_t> (rate)] : Head::fpsUnknown;
}

}   // namespace

void JuceAAX_Processor::processContexts (void* const* first, void* const* last)
{
    for (; first < last; ++first)
    {
        const auto& block = *static_cast<const Context*> (*first);

        if (auto* const one = *block.processor; one != nullptr && one->isPrepared)
            one->process (block.inputs, block.outputs, one->judge().getTotalNumInputChannels(), *block.numSamples,
                          Mode::realTime);
    }
}

void JuceAAX_Processor::setAudioSuite (bool isOffline)
{
    if (judge().isAudioSuite == isOffline)
        return;

    judge().isAudioSuite = isOffline;
    judge().audioSuiteChanged (isOffline);
}

bool JuceAAX_Processor::process (const float* const* inputs, float* const* outputs, int numChannels, int numSamples,
                                 Mode mode)
{
    if (numSamples < 1)
        return false;

    if (mode == Mode::realTime)
        setAudioSuite (false);

    // A pass waits for the block that it meets. A block waits for nobody: one that meets a pass is silent.
    while (isProcessing.exchange (true))
    {
        if (mode != Mode::realTime)
        {
            juce::Thread::yield();
            continue;
        }

        for (int channel = 0; channel < numChannels; ++channel)
            if (outputs[channel] != nullptr)
                std::fill_n (outputs[channel], numSamples, 0.0f);

        return false;
    }

    processor->bypass = bypass != nullptr && bypass->GetValue();
    const auto isDone = processor->process (inputs, outputs, numChannels, numSamples, mode);
    isProcessing = false;
    return isDone;
}

juce::Optional<juce::AudioPlayHead::PositionInfo> JuceAAX_Processor::getPosition() const
{
    juce::Optional<PositionInfo> result { PositionInfo() };
    auto& now = *result;
    double tempo = 120.0;
    bool playing = false, looping = false;
    std::int64_t samples = 0, ticks = 0, loopStart = 0, loopEnd = 0;
    std::int32_t numerator = 4, denominator = 4;
    AAX_EFrameRate rate {};

    if (const auto* const transport = Controller() != nullptr ? Controller()->GetTransport() : nullptr)
    {
        transport->GetCurrentTempo (&tempo);
        transport->IsTransportPlaying (&playing);
        transport->GetCurrentSampleLocation (&samples);
        transport->GetCurrentTickPosition (&ticks);
        transport->GetFrameRate (&rate);

        if (playing)
        {
            transport->GetCurrentMeter (&numerator, &denominator);
            transport->GetCurrentLoopPosition (&looping, &loopStart, &loopEnd);
        }
    }

    now.setBpm (tempo);
    now.setIsPlaying (playing);
    now.setTimeSignature (TimeSignature { numerator, denominator });
    now.setIsLooping (looping);
    now.setLoopPoints (LoopPoints { loopStart / kAAX_TicksPerQuarter, loopEnd / kAAX_TicksPerQuarter });
    now.setTimeInSamples (samples);
    now.setTimeInSeconds (samples / sampleRate);
    now.setPpqPosition (ticks * 60.0 / kAAX_TicksPerQuarter / tempo);
    now.setFrameRate (FrameRate (toFrameRate (rate)));
    return result;
}

}   // namespace AAXClasses
