// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/CDelayFilter.h"

#include <random>
#include <vector>

#include <gtest/gtest.h>

TEST (CDelayFilterTest, EqualsOneSampleAtATimeForAnyBlockLengthAndDelay)
{
    constexpr int capacity = 37;
    CDelayFilter<int> filter (capacity);
    std::vector<int> stored (capacity);   // silence, then all that came in
    std::minstd_rand random (1);

    for (int round = 0; round < 2000; ++round)
    {
        const auto delay = random() % (capacity + 1);
        const auto start = stored.size() - delay;
        std::vector<int> block (random() % 100);
        std::generate (block.begin(), block.end(), std::ref (random));
        stored.insert (stored.end(), block.begin(), block.end());
        filter.setDelay (static_cast<int> (delay));

        if (round % 4 == 0)
        {
            filter.push (block.data(), static_cast<int> (block.size()));
            continue;
        }
        filter.process (block.data(), static_cast<int> (block.size()));
        ASSERT_TRUE (std::equal (block.begin(), block.end(), stored.data() + start)) << delay << " " << block.size();
    }
}
