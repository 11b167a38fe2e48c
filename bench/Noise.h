// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

/** The same stereo block of noise in every benchmark. */
inline juce::AudioSampleBuffer makeNoise (int numSamples)
{
    juce::Random random (1);
    juce::AudioSampleBuffer block (2, numSamples);

    for (int channel = 0; channel < 2; ++channel)
        for (int i = 0; i < numSamples; ++i)
            block.setSample (channel, i, random.nextFloat() - 0.5f);

    return block;
}
