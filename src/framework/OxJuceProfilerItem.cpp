// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/OxJuceProfilerItem.h"

void OxJuceProfilerItem::start (double expectedMs)
{
    if (! enabled)
        return;

    startTime = juce::Time::getMillisecondCounterHiRes();
    expectedDuration = expectedMs;
}

void OxJuceProfilerItem::stop()
{
    if (! enabled || startTime == 0.0)
        return;

    const double oldShare = smoothing, newShare = 1.0 - oldShare;
    const auto duration = juce::Time::getMillisecondCounterHiRes() - startTime;
    averageDuration = oldShare * averageDuration + newShare * duration;
    maxDuration = std::max (maxDuration.get(), duration);

    if (expectedDuration > 0.0)
    {
        const auto load = duration / expectedDuration;
        averageLoad = newShare * load + oldShare * averageLoad;
        maxLoad = std::max (maxLoad.get(), load);
        expectedDuration = 0.0;
    }

    const auto interval = startTime - lastStartTime;
    lastStartTime = startTime;
    startTime = 0.0;
    averageInterval = newShare * interval + oldShare * averageInterval;
}
