// SPDX-License-Identifier: GPL-3.0-or-later
#include "InfoRecord.h"

#include <cstring>

namespace baylink
{

void InfoRecord::publish (const PodInfo& info) noexcept
{
    Words words {};
    std::memcpy (words.data(), &info, sizeof (info));

    const auto next = shown.load (std::memory_order_relaxed) + 1;
    auto& copy = copies[next % 2];

    for (std::size_t i = 0; i < words.size(); ++i)
        copy[i].store (words[i], std::memory_order_release);

    shown.store (next, std::memory_order_release);
}

PodInfo InfoRecord::read() const noexcept
{
    for (;;)
    {
        const auto current = shown.load (std::memory_order_acquire);
        const auto& copy = copies[current % 2];
        Words words;

        for (std::size_t i = 0; i < words.size(); ++i)
            words[i] = copy[i].load (std::memory_order_acquire);

        if (shown.load (std::memory_order_relaxed) == current)
        {
            PodInfo info;
            std::memcpy (static_cast<void*> (&info), words.data(), sizeof (info));
            return info;
        }
    }
}

}   // namespace baylink
