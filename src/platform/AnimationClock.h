// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** The time of something that moves on the screen, in milliseconds from 0 on, by a clock that nobody sets: that of the day
    may jump. For one thread at a time, which brings the moments along. */
class AnimationClock
{
public:
    static constexpr double kLongestStep = 10000.0;   // milliseconds, in which whatever moves has come to rest

    /** A moment of the one clock, in milliseconds, for `stepTo` [any thread]. */
    static double read() { return juce::Time::getMillisecondCounterHiRes(); }

    /** Goes on to a moment. @returns the milliseconds since the last one: never less than 0 nor more than kLongestStep. */
    double stepTo (double moment) noexcept
    {
        const auto step = juce::jlimit (0.0, kLongestStep, moment - std::exchange (lastMoment, moment));
        time += step;
        return step;
    }

    /** The sum of all steps. */
    double getTime() const noexcept { return time; }

private:
    double lastMoment = read(), time = 0.0;
};
