// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxPeakHold.h"

namespace
{

constexpr float kBeyondAnyLevel = 1000.0f;   // dB

}   // namespace

void OxPeakHold::reset (juce::Time now)
{
    value = direction == 1.0f ? -kBeyondAnyLevel : kBeyondAnyLevel;
    lastTime = now;
    falling = true;
}

void OxPeakHold::feed (float levelDb, juce::Time now)
{
    if (! (direction * levelDb > direction * value))
        return;

    value = levelDb;
    lastTime = now;
    falling = false;
}

float OxPeakHold::read (juce::Time now)
{
    auto elapsedMs = static_cast<float> ((now - lastTime).inMilliseconds());

    if (! falling)
    {
        const auto holdMs = holdSeconds * 1000.0f;

        if (holdSeconds == kForEver || elapsedMs < holdMs)
            return value;

        falling = true;
        elapsedMs -= holdMs;
    }

    value -= elapsedMs * direction * fallRateDbPerSecond / 1000.0f;
    lastTime = now;
    return value;
}
