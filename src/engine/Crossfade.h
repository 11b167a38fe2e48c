// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

/** Linear crossfade of 40 ms between two buffers [audio thread].

    A fade runs across as many blocks as it takes. When the buffers change places half way, so do the two gains, and the
    fade goes on from there. Nothing allocates. Before a sample rate is known a fade lasts one block. */
class Crossfade
{
public:
    /** Mixes `incoming` into `outgoing`, in place; both hold the same number of samples.
        @returns true with the block in which the fade ends */
    bool step (juce::AudioSampleBuffer& outgoing, const juce::AudioSampleBuffer& incoming) noexcept;

    void setSampleRate (int hertz) noexcept { sampleRate = hertz; }

private:
    int fadeLength = 0, fadeRemaining = 0;   // samples; 0 between fades
    float fadeGain = 1.0f;                   // of the outgoing buffer
    int sampleRate = 0;                      // hertz, 0 until prepared
};
