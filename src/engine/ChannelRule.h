// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

/** How a source meets a destination of another channel count. Pairs beyond one and two channels do not meet at all. */
namespace channelRule
{

/** The gain of one channel that goes into both of a stereo pair, or of each of a pair that goes into one: sqrt (2) / 2. */
constexpr float kPairGain = 0.70710678118654752f;

/** Copies `source` onto `destination`, both of the same length [audio thread]: a single channel goes into both of a pair
    at `kPairGain`; of a pair into a single channel the second one remains. */
void copy (juce::AudioSampleBuffer& destination, const juce::AudioSampleBuffer& source);

}   // namespace channelRule
