// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

namespace desk
{

/** Converts whole recordings from one sample rate to another, for once and not in real time [any thread].

    A symmetric kernel is laid round each output sample, so nothing is delayed: output sample i is the input at the time
    i / newRate. What the lower rate cannot hold is filtered away. The material counts as silent before and after. */
class Resampler
{
public:
    /** Both rates in hertz, positive. */
    Resampler (int oldRate, int newRate);

    /** @returns `source` at the new rate, its length rounded up to a whole sample. */
    juce::AudioSampleBuffer process (const juce::AudioSampleBuffer& source) const;

private:
    void fillPhase (int phase, double cutoff);
    float interpolate (const float* source, int numSamples, juce::int64 centre, int phase) const noexcept;

    int step = 1, numPhases = 1;   // newRate : oldRate in lowest terms
    int reach = 0;                 // input samples on either side of the centre
    std::vector<float> kernels;    // numPhases times 2 * reach taps
};

}   // namespace desk
