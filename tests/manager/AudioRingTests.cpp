// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestPod.h"

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

TEST (AudioRingTest, GivesBackWhatItHoldsAtAnyPlaceAndLength)
{
    AudioRing ring (2);
    const auto begin = ring.end();
    std::mt19937 random { 7 };
    int written = 0;

    for (const auto block : { 1, 2, 3, 4095, 64, kCapacity, 1, 60000, 2 * kCapacity + 3, 7, 4096 })
    {
        writeNumbered (ring, written, block);
        written += block;

        for (int attempt = 0; attempt < 40; ++attempt)
        {
            const auto length = static_cast<int> (random() % 3000);
            const auto from = written + 1000 - static_cast<int> (random() % (kCapacity + 5000));
            std::vector<float> left (3001, 0.5f), right (left), expectedLeft (left), expectedRight (left);
            float* const channels[] = { left.data(), right.data() };
            ring.read (channels, 1, begin + from, length);

            for (auto place = std::max (from, written - kCapacity); place < std::min (from + length, written); ++place)
            {
                expectedLeft[1 + place - from] = place < 0 ? 0.0f : static_cast<float> (place + 1);
                expectedRight[1 + place - from] = place < 0 ? 0.0f : static_cast<float> (place + 2);
            }

            ASSERT_TRUE (left == expectedLeft && right == expectedRight) << from << " of " << written;
        }
    }
}

TEST (AudioRingTest, NeverGivesATornStretchToAReaderThatIsOverrun)
{
    AudioRing ring (1);
    const auto begin = ring.end();
    constexpr int blocks = 3000, length = 1001;
    std::thread writer (
        [&]
        {
            for (int block = 0; block < blocks; ++block)
                writeNumbered (ring, block * length, length);
        });

    int torn = 0;

    for (std::mt19937 random { 8 }; ring.end() < begin + blocks * length;)
    {
        // Just where the writer takes away.
        const auto from = std::max<std::int64_t> (0, ring.end() - begin - kCapacity + 1000 - random() % 4000);
        std::array<float, 2048> samples {};
        float* const channels[] = { samples.data() };
        ring.read (channels, 0, begin + from, static_cast<int> (samples.size()));

        for (std::size_t i = 0; i < samples.size(); ++i)
            torn += samples[i] == 0.0f || samples[i] == static_cast<float> (from + 1 + i) ? 0 : 1;
    }

    writer.join();
    EXPECT_EQ (torn, 0);
}

TEST (PodStreamTest, KeepsToTheChannelsThatItsListenerWasTold)
{
    PodManager manager;
    TestPod listener { &manager }, sender { &manager };
    manager.openStream (sender.id, 1);
    listener.choose (sender.id);
    ASSERT_TRUE (manager.openStream (sender.id, 2));
    std::vector<float> ones (64, 1.0f), left (64), right (64, 7.0f);
    const float* const both[] = { ones.data(), nullptr };
    float* const channels[] = { left.data(), right.data() };   // at first, the second is not known to the listener

    for (int block = 0; block < 100; ++block)
        manager.writeAudio (sender.id, both, 64);

    manager.readAudio (listener.id, channels, 64, sender.id);
    EXPECT_TRUE (left.front() == 0.0f && right.front() == 7.0f);
    manager.readAudio (listener.id, channels, 64, sender.id);
    EXPECT_TRUE (left.front() == 1.0f && right.front() == 0.0f);
}
