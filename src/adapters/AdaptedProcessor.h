// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/MessageThread.h"
#include "engine/DuoJudgeProcessor.h"

/** One processor behind the interface of a host, and what every format does with it alike.

    Its timer runs on the message thread, so it goes by `MessageThread::destroy`. */
class AdaptedProcessor
{
public:
    struct Destroyer
    {
        void operator() (AdaptedProcessor* object) const { MessageThread::destroy (object); }
    };

    using Ptr = std::unique_ptr<AdaptedProcessor, Destroyer>;

    enum class Mode
    {
        realTime,
        analysis,
        render
    };

    /** Makes the processor [any thread with a `MessageThread::User`].
        @param wrapperType the format, as `OxJuceProcessorBase::PluginType` counts */
    explicit AdaptedProcessor (int wrapperType);

    DuoJudgeProcessor& get() const noexcept { return *processor; }

    /** Adds or removes a listener; one that is removed is in no call any more [any thread]. */
    void addListener (juce::AudioProcessorListener& listener) { processor->addListener (&listener); }
    void removeListener (juce::AudioProcessorListener& listener);

    /** The layout that the processor is told where the host tells no more than a number of channels. */
    static juce::AudioChannelSet layoutOf (int numChannels);

    /** Takes over what the host has set up and prepares the processor [any thread, while no audio runs].
        @returns false without a sample rate, and changes nothing then */
    bool configure (double sampleRate, int blockSize, const juce::AudioChannelSet& input,
                    const juce::AudioChannelSet& output);

    /** Processes the inputs, or delays them while the host bypasses, into the outputs, which may be the same [audio thread].
        An offline pass takes a stretch of any length and knows no bypass [the host's render thread].
        @returns false, and processes nothing, if a channel is null */
    bool process (const float* const* inputs, float* const* outputs, int numChannels, int numSamples,
                  Mode mode = Mode::realTime);

    Relaxed<bool> bypass = false;   // by the host

private:
    std::unique_ptr<DuoJudgeProcessor> processor;
    juce::MidiBuffer midi;   // stays empty
};
