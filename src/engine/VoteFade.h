// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include <juce_audio_basics/juce_audio_basics.h>

/** Hides the turn that follows a vote: the output sinks to silence, where the caller turns, and rises again, in 50 ms each
    [audio thread].

    The gain moves by one step a sample until it meets 0 or 1. Both ramps depend on the sample rate alone and are computed
    ahead, sample by sample, so that a block is one multiplication each channel. */
class VoteFade
{
public:
    enum class Event
    {
        none,
        silent,
        finished
    };

    VoteFade() { setSampleRate (0); }

    /** Computes the ramps; before a rate is known they last one sample. Allocates: not while audio runs. */
    void setSampleRate (int hertz);

    /** Applies the next stretch to every channel; the first call after the end of a fade begins a new one.
        @returns `silent` at the end of the block that reached 0 and stayed there: from the next block on the fade rises;
        `finished` at the end of the block that came back to 1 */
    Event apply (juce::AudioSampleBuffer& block) noexcept;

private:
    std::vector<float> falling, rising;   // gains of successive samples, from one bound until just before the other
    float voteFadeStep = 0.0f;            // added to the gain at each sample; 0 between fades
    int position = 0;                     // in the ramp that runs
    float stepOfRamps = 0.0f;             // of the falling ramp
};
