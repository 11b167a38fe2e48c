// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodStream.h"

#include <algorithm>

namespace baylink
{

void PodStream::begin (std::uint64_t newAge) noexcept
{
    // The age changes first: whoever meets anything of the new life finds out by asking for it again.
    currentAge.store (newAge, std::memory_order_relaxed);
    ring.restart();
    base = ring.end();
    runs.clear();
    latest = 0;
    longest = 0;
}

void PodStream::write (const float* const* channels, int numSamples, const std::int64_t* label) noexcept
{
    // A label stands in the table by the time its samples can be seen, so the table is never behind the audio.
    latest = numSamples;
    longest = std::max (longest.get(), numSamples);

    if (label != nullptr)
        runs.lay (written(), numSamples, *label);

    ring.write (channels, numSamples);
}

void PodStream::read (float* const* channels, int offset, std::int64_t place, int numSamples) const noexcept
{
    const auto before = std::min<std::int64_t> (std::max<std::int64_t> (0, -place), numSamples);
    ring.read (channels, offset + static_cast<int> (before), base + place + before,
               numSamples - static_cast<int> (before));
}

}   // namespace baylink
