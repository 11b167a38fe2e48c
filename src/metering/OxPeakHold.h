// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** A meter's memory of its peak, which waits there and then sinks, each second by as many dB. For one thread at a time, who
    brings the clock along. */
struct OxPeakHold
{
    static constexpr float kForEver = -1.0f;   // as `holdSeconds`: never falls

    /** Starts below everything, and falling. */
    void reset (juce::Time now);

    /** Takes a level that goes beyond what is held; any other, or what is no number, changes nothing. */
    void feed (float levelDb, juce::Time now);

    /** Lets the marker fall up to this moment. @returns where it stands, in dB */
    float read (juce::Time now);

    float value = -1000.0f;   // dB
    juce::Time lastTime;      // of the last change of `value`
    bool falling = true;
    float fallRateDbPerSecond = 40.0f / 3.0f;
    float direction = 1.0f;   // -1 holds the lowest level and lets it rise
    float holdSeconds = 2.0f;
};
