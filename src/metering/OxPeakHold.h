// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** A meter's memory of its peak, which waits there and then sinks, each second by as many dB. For one thread at a time, who
    brings the time along, in milliseconds that never go back. */
struct OxPeakHold
{
    static constexpr float kForEver = -1.0f;   // as `holdSeconds`: never falls

    /** Starts below everything, and falling. */
    void reset (double now);

    /** Takes a level that goes beyond what is held; any other, or what is not finite, changes nothing. */
    void feed (float levelDb, double now);

    /** Lets the marker fall up to this moment. @returns where it stands, in dB */
    float read (double now);

    float value = -1000.0f;   // dB
    double lastTime = 0.0;    // of the last change of `value`
    bool falling = true;
    float fallRateDbPerSecond = 40.0f / 3.0f;
    float direction = 1.0f;   // -1 holds the lowest level and lets it rise
    float holdSeconds = 2.0f;
};
