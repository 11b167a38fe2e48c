// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestPod.h"

#include <atomic>
#include <numeric>

using namespace baylink;

constexpr int kCapacity = AudioRing::kCapacity;

/** Writes samples that tell their place, counted from 1, and in a second channel the place of the next one. */
static void writeNumbered (AudioRing& ring, int from, int numSamples)
{
    std::vector<float> samples (static_cast<std::size_t> (numSamples + 1));
    std::iota (samples.begin(), samples.end(), static_cast<float> (from + 1));
    const float* const channels[] = { samples.data(), samples.data() + 1 };
    ring.write (channels, numSamples);
}

TEST (AudioRingTest, GivesWhatItHoldsOrSilenceButNeverATornStretchToAReaderThatIsOverrun)
{
    AudioRing ring (2);
    const auto begin = ring.end();
    std::atomic<bool> ended { false };
    std::thread writer (
        [&, written = 0]() mutable
        {
            for (int round = 0; round < 25; ++round)
                for (const auto block : { 1, 2, 3, 4095, 64, kCapacity, 1, 1001, 2 * kCapacity + 3, 7, 4096 })
                    writeNumbered (ring, std::exchange (written, written + block), block);

            ended = true;
        });

    const auto countWrong = [&] (std::int64_t from, int length, bool allHeld)
    {
        std::vector<float> left (static_cast<std::size_t> (length)), right (left);
        float* const channels[] = { left.data(), right.data() };
        ring.read (channels, 0, begin + from, length);
        int wrong = 0;

        for (int i = 0; i < 2 * length; ++i)
            if (const auto heard = channels[i % 2][i / 2]; heard != from + 1 + i / 2 + i % 2 && (allHeld || heard != 0))
                ++wrong;

        return wrong;
    };

    int torn = 0;

    // Just where the writer takes away.
    for (std::mt19937 random { 8 }; ! ended;)
        torn += countWrong (std::max<std::int64_t> (0, ring.end() - begin - kCapacity + 1000 - random() % 4000),
                            static_cast<int> (random() % 3000), false);

    writer.join();
    EXPECT_EQ (torn, 0);

    for (int length = 1; length < kCapacity; length += length / 2 + 1)
        EXPECT_EQ (countWrong (ring.end() - begin - length, length, true), 0) << length;
}
