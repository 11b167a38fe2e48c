// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include <juce_audio_basics/juce_audio_basics.h>

/** Hides the turn that follows a vote: the output sinks to silence, where the caller turns, and rises again, in 50 ms each
    [audio thread].

    The gain moves by one step a sample until it meets 0 or 1; a fall that is broken off rises from where it is. The ramp
    depends on the sample rate alone and is computed ahead, so that a block is one multiplication each channel. */
class VoteFade
{
public:
    VoteFade() { setSampleRate (0); }

    /** Computes the ramp; before a rate is known it lasts one sample. Allocates: not while audio runs. */
    void setSampleRate (int hertz);

    /** Applies the next stretch of the fall to every channel, and silence behind its end.
        @returns true at the end of the block that reached silence */
    bool fall (juce::AudioSampleBuffer& block) noexcept;

    /** The same for the rise. @returns true at the end of the block from which on all is as it was */
    bool rise (juce::AudioSampleBuffer& block) noexcept;

private:
    std::vector<float> falling, rising;   // the same gains both ways, from one bound until just before the other
    int depth = 0;                        // samples fallen; in silence as many as the ramp has
};
