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
    if (enabled)
        stopAt (juce::Time::getMillisecondCounterHiRes());
}

void OxJuceProfilerItem::stopAt (double now)
{
    if (! enabled || startTime == 0.0)
        return;

    const double oldShare = smoothing, newShare = 1.0 - oldShare;
    const auto duration = now - startTime;
    averageDuration = oldShare * averageDuration + newShare * duration;
    maxDuration = std::max (maxDuration.get(), duration);

    if (expectedDuration != 0.0)
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

juce::String OxJuceProfilerItem::getReport() const
{
    auto line =
        maxLoad == 0.0
            ? name + " " + juce::String (averageDuration, 2) + " (" + juce::String (maxDuration, 2) + ")"
            : name + " " + juce::String (averageLoad * 100.0, 2) + "% (" + juce::String (maxLoad * 100.0, 2) + "%)";

    if (showFrequency && averageInterval != 0.0)
        line << ", freq = " << juce::String (1000.0 / averageInterval, 1) << "Hz";

    return line;
}
