// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

/** Linear crossfade of 40 ms between two buffers [audio thread].

    A fade runs across as many blocks as it takes and can be turned round half way by giving the buffers the other way
    round. Nothing allocates. Before a sample rate is known a fade lasts one block. */
class Crossfade
{
public:
    /** Mixes `incoming` into `outgoing`, in place; both hold the same number of samples.
        @returns true with the block in which the fade ends */
    bool step (juce::AudioSampleBuffer& outgoing, const juce::AudioSampleBuffer& incoming) noexcept;

    void setSampleRate (int hertz) noexcept { sampleRate = hertz; }

private:
    /** A gain that moves by `increment` a sample for `length` samples and then stays at `end`. */
    struct Ramp
    {
        float start, increment, end;
        int length;
    };

    static void mix (float* outgoing, const float* incoming, Ramp ramp, int numSamples) noexcept;
    static void scale (float* samples, Ramp ramp, int numSamples) noexcept;
    static void add (float* destination, const float* source, Ramp ramp, float gain, int numSamples) noexcept;
    static void addIncoming (juce::AudioSampleBuffer& outgoing, const juce::AudioSampleBuffer& incoming,
                             Ramp ramp) noexcept;

    int fadeLength = 0, fadeRemaining = 0;   // samples; 0 between fades
    float fadeGain = 1.0f;                   // of the outgoing buffer
    int sampleRate = 0;                      // hertz, 0 until prepared
};
