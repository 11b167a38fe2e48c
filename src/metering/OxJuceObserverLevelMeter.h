// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metering/OxJuceObserver.h"
#include "platform/AnimationClock.h"

/** Peak meter: keeps the largest magnitude since the last reading.

    `blockLevel` is the one word that both threads write: the audio thread collects into it, the reader marks it as read.
    A level that falls between reading and mark is lost, which costs one reading. All else belongs to one thread.

    The levels given out are finite: none is above 60 dB, and what is no number is no level. */
class OxJuceObserverLevelMeter : public OxJuceObserverTimeDomainLevelSingleChannel
{
public:
    static constexpr float kNoBallistics = 1e6f;   // as fall rate: follow the signal at once

    void reset() override;
    void process (const juce::AudioSampleBuffer& block) override;
    float getLevelDb() override;
    float getInstantLevelDb() override;

    /** `getLevelDb` at a moment of the AnimationClock: up with the signal, down by no more than `fallRateDbPerSecond`
        allows. When no level comes for the time of two, and for half a second at least, nobody processes, which is silence. */
    float getLevelDbAt (double moment);

    Relaxed<float> fallRateDbPerSecond = kNoBallistics;
    Relaxed<float> direction = 1.0f;       // -1: down at once, up at the rate
    Relaxed<float> levelPeriodMs = 0.0f;   // from one level to the next, at most; told by who calls `process`

protected:
    static constexpr float noLevelMark = -1000.0f;   // nothing since the reading; no magnitude is below it
    static constexpr float silentLevel = 0.0f;

    Relaxed<float> blockLevel = 0.0f;   // linear

private:
    void takeBlockLevel (double elapsedMs);

    AnimationClock clock;
    double lastLevelAge = 0.0;   // milliseconds
    float heldLevelDb = -1000.0f, lastLevel = 0.0f;
};

/** 20 log10 of a linear level, in double; -1e10 below 1e-10. */
float linearToDecibels (float linear);
