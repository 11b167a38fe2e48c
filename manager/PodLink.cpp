// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodLink.h"

#include <algorithm>

namespace baylink
{

void PodLink::make (PodId podId, std::uint32_t serial, std::uint64_t streamAge) noexcept
{
    ageWhenMade = streamAge;
    target.store (std::uint64_t { serial } << 32 | static_cast<std::uint32_t> (podId), std::memory_order_release);
}

void PodLink::end() noexcept
{
    target.store (0, std::memory_order_release);
}

void PodLink::read (const PodStream& stream, float* const* channels, const StreamMatcher::Block& block) noexcept
{
    if (const auto newTarget = target.load (std::memory_order_acquire); newTarget != currentTarget)
    {
        currentTarget = newTarget;
        currentAge = ageWhenMade;
        matcher.reset();
    }

    // A stream that began since the last block may have more channels than the listener has arrays: it asked for the
    // number before. It has asked again by the next block.
    const auto age = stream.age();
    const auto fits = age == currentAge;

    if (! fits)
    {
        currentAge = age;
        matcher.reset();
    }

    const auto plan = matcher.match (block, { stream.written(), stream.latestBlock(), stream.labels() });

    if (! fits)
        return;

    for (const auto& stretch : plan)
        stream.read (channels, stretch.at, stretch.place, stretch.length);

    // The pod left meanwhile, and the stream may have another's audio.
    if (stream.age() != age)
        for (int channel = 0; channel < stream.numChannels(); ++channel)
            if (channels[channel] != nullptr)
                std::fill_n (channels[channel], block.length, 0.0f);
}

}   // namespace baylink
