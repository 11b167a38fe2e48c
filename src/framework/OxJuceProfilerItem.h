// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Relaxed.h"

#include <juce_core/juce_core.h>

/** Running averages of how long one of the main loops takes.

    One thread measures, the message thread reads along. While `enabled` is false a measurement costs one test. */
class OxJuceProfilerItem
{
public:
    explicit OxJuceProfilerItem (const juce::String& itemName) : name (itemName) {}
    virtual ~OxJuceProfilerItem() = default;

    /** Begins a measurement. @param expectedMs what it may take, or 0 for no expectation */
    void start (double expectedMs = 0.0);

    /** Ends the measurement that runs, if one does. */
    void stop();

    /** The same at a time of the caller's. @param now milliseconds of the toolkit's high-resolution counter */
    void stopAt (double now);

    /** @returns one line: name, average and longest duration in milliseconds or, for an item with an expectation, average and
                highest share of it in percent; then the rate of the calls, if it is to be shown [any thread] */
    juce::String getReport() const;

    /** Measures until the scope is left, in whatever way, if the item is enabled when it begins. */
    class Scope
    {
    public:
        explicit Scope (OxJuceProfilerItem& itemToMeasure, double expectedMs = 0.0) :
            item (itemToMeasure.enabled ? &itemToMeasure : nullptr)
        {
            if (item != nullptr)
                item->start (expectedMs);
        }

        ~Scope()
        {
            if (item != nullptr)
                item->stop();
        }

        Scope (const Scope&) = delete;
        Scope& operator= (const Scope&) = delete;

    private:
        OxJuceProfilerItem* const item;
    };

    Relaxed<bool> enabled = false;
    bool showFrequency = false;
    float smoothing = 0.99f;   // how much of itself an average keeps at each measurement
    juce::String name;
    Relaxed<double> startTime = 0.0, lastStartTime = 0.0;   // milliseconds; 0 while nothing is measured
    Relaxed<double> averageDuration = 0.0, averageInterval = 0.0, maxDuration = 0.0;   // milliseconds
    Relaxed<double> averageLoad = 0.0, maxLoad = 0.0;                                  // duration / expected duration
    Relaxed<double> expectedDuration = 0.0;                                            // milliseconds; 0 means none
};
