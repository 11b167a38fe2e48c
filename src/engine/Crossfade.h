// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

/** Linear crossfade of 40 ms between the sources A and B [audio thread].

    It stands at A, at B or on the way, and goes where it is told: turned round half way, it goes back from there. A fade
    runs across as many blocks as it takes. Nothing allocates. Before a sample rate is known a fade lasts one block. */
class Crossfade
{
public:
    enum class Side
    {
        a,
        b
    };

    /** Replaces the first two channels of `a` by what is heard on the way to `side`, in place; where it stands at that side
        they are A or B to the bit. All others stay. Both hold the same number of samples.
        @returns true when it was on its way, in any part of the block */
    bool mix (juce::AudioSampleBuffer& a, const juce::AudioSampleBuffer& b, Side side) noexcept;

    /** Stands at A at once: there is no B to come from. */
    void settleOnA() noexcept { position = 0; }

    void setSampleRate (int hertz) noexcept;

private:
    void setLength (int samples) noexcept;

    int lengthAtRate = 0;   // samples; 0 until a rate is known
    int length = 1;         // of the fade, in samples
    int position = 0;       // samples away from A, `length` at B
};
