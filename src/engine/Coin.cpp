// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/Coin.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <random>

Coin makeFairCoin()
{
    // SplitMix64 (Steele, Lea, Flood 2014): a counter in steps of the golden ratio, mixed to independent bits. The counter
    // is the whole state, so that any thread takes its turn with one addition.
    std::random_device entropy;
    const auto seed = (static_cast<std::uint64_t> (entropy()) << 32) | entropy();
    auto counter = std::make_shared<std::atomic<std::uint64_t>> (seed);

    return [counter]
    {
        auto bits = counter->fetch_add (0x9e3779b97f4a7c15u, std::memory_order_relaxed);
        bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9u;
        bits = (bits ^ (bits >> 27)) * 0x94d049bb133111ebu;
        return static_cast<int> ((bits ^ (bits >> 31)) & 1u);
    };
}
