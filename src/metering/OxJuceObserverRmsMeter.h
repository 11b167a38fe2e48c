// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metering/OxJuceObserverLevelMeter.h"

#include <array>

/** RMS meter: the level is that of the latest complete window of 4096 samples, at every sample rate. */
class OxJuceObserverRmsMeter : public OxJuceObserverLevelMeter
{
public:
    static constexpr int kWindowLength = 4096;   // samples
    static constexpr int kNumLanes = 32;

    void reset() override;
    void process (const juce::AudioSampleBuffer& block) override;

private:
    /** Makes the level of the sums. Apart from `process`, which most blocks leave before the end of a window. */
    [[gnu::noinline]] void finishWindow (float scale);

    int windowLength = kWindowLength;
    std::array<float, kNumLanes> sumsOfSquares {};   // each of every 32nd sample: one would be a chain of additions
    int samplesInWindow = 0;
};
