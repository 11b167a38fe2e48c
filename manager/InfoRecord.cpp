// SPDX-License-Identifier: GPL-3.0-or-later
#include "InfoRecord.h"

namespace baylink
{

void InfoRecord::publish (const PodInfo& info) noexcept
{
    const auto next = shown.load (std::memory_order_relaxed) + 1;
    platform::sharedWords::store (&info, copies[next % 2].data(), kNumWords);
    shown.store (next, std::memory_order_release);
}

PodInfo InfoRecord::read() const noexcept
{
    for (;;)
    {
        const auto current = shown.load (std::memory_order_acquire);
        PodInfo info;
        platform::sharedWords::load (copies[current % 2].data(), &info, kNumWords);

        if (shown.load (std::memory_order_relaxed) == current)
            return info;
    }
}

}   // namespace baylink
