// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxPeakHold.h"

#include <cmath>

namespace
{

constexpr float kBeyondAnyLevel = 1000.0f;   // dB

}   // namespace

void OxPeakHold::reset (double now)
{
    value = direction == 1.0f ? -kBeyondAnyLevel : kBeyondAnyLevel;
    lastTime = now;
    falling = true;
}

void OxPeakHold::feed (float levelDb, double now)
{
    if (! std::isfinite (levelDb) || direction * levelDb <= direction * value)
        return;

    value = levelDb;
    lastTime = now;
    falling = false;
}

float OxPeakHold::read (double now)
{
    auto elapsedMs = static_cast<float> (now - lastTime);

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
