// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace baylink
{

/** The bounds of what was met lately: in the last one to two periods, so that nothing is remembered for ever. */
class RecentRange
{
public:
    /** Takes `value` in. @param now a count of samples that only grows */
    void meet (std::int64_t value, std::int64_t now) noexcept
    {
        if (now - begun >= kPeriod)
        {
            former = std::exchange (current, {});
            begun = now;
        }

        current = { std::min (current.low, value), std::max (current.high, value) };
    }

    void clear() noexcept { current = former = {}; }

    bool isEmpty() const noexcept { return low() > high(); }
    std::int64_t low() const noexcept { return std::min (current.low, former.low); }
    std::int64_t high() const noexcept { return std::max (current.high, former.high); }
    std::int64_t width() const noexcept { return isEmpty() ? 0 : high() - low(); }

    /** @returns how far `value` lies outside, 0 within. */
    std::int64_t distance (std::int64_t value) const noexcept
    {
        return std::max<std::int64_t> ({ 0, low() - value, value - high() });
    }

private:
    static constexpr std::int64_t kPeriod = 32768;   // samples
    static constexpr auto kMost = std::numeric_limits<std::int64_t>::max() / 4;

    struct Bounds
    {
        std::int64_t low = kMost, high = -kMost;
    };

    Bounds current, former;
    std::int64_t begun = 0;
};

}   // namespace baylink
