// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metering/OxJuceObserverLevelMeter.h"

/** RMS meter: the level is that of the latest complete window of 4096 samples, at every sample rate. */
class OxJuceObserverRmsMeter : public OxJuceObserverLevelMeter
{
public:
    static constexpr int kWindowLength = 4096;   // samples

    void reset() override;
    void process (const juce::AudioSampleBuffer& block) override;

private:
    int windowLength = kWindowLength;
    float sumOfSquares = 0.0f;
    int samplesInWindow = 0;
};
