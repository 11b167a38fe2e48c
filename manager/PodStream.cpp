// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodStream.h"

#include <algorithm>

namespace baylink
{

void PodStream::begin (std::uint64_t newAge) noexcept
{
    // The age changes first, so whoever meets anything of the new life finds out by asking for it again. The base
    // changes last, so whoever meets it meets all else of the new life, and never an end that lies before it.
    currentAge.store (newAge, std::memory_order_relaxed);
    runs.clear();
    latest.store (0, std::memory_order_release);
    ring.restart();
    base.store (ring.end(), std::memory_order_release);
}

void PodStream::write (const float* const* channels, int numSamples, const std::int64_t* label) noexcept
{
    // A label stands in the table by the time its samples can be seen, so the table is never behind the audio.
    latest.store (numSamples, std::memory_order_release);

    if (label != nullptr)
        runs.lay (written(), numSamples, *label);

    ring.write (channels, numSamples);
}

std::int64_t PodStream::written() const noexcept
{
    const auto start = base.load (std::memory_order_acquire);
    return ring.end() - start;
}

void PodStream::read (float* const* channels, int offset, std::int64_t place, int numSamples) const noexcept
{
    const auto before = std::min<std::int64_t> (std::max<std::int64_t> (0, -place), numSamples);
    ring.read (channels, offset + static_cast<int> (before), base.load (std::memory_order_acquire) + place + before,
               numSamples - static_cast<int> (before));
}

}   // namespace baylink
