// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodManager.h"
#include "TestPod.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <numeric>
#include <random>
#include <thread>

using namespace baylink;

namespace
{

constexpr int kCapacity = AudioRing::kCapacity;
constexpr float kUntouched = -1.0f;

/** Samples that tell their place; exact in a float. */
float valueAt (std::int64_t place)
{
    return static_cast<float> (place % 8000000 + 1);
}

void writeNumbered (AudioRing& ring, std::int64_t from, int numSamples)
{
    std::vector<float> left (static_cast<std::size_t> (numSamples)), right (left.size());

    for (int i = 0; i < numSamples; ++i)
        right[static_cast<std::size_t> (i)] = -(left[static_cast<std::size_t> (i)] = valueAt (from + i));

    const float* const channels[] = { left.data(), right.data() };
    ring.write (channels, numSamples);
}

}   // namespace

TEST (AudioRingTest, GivesBackWhatItHoldsAtAnyPlaceAndLength)
{
    AudioRing ring (2);
    const auto begin = ring.end();
    std::mt19937 random { 7 };
    std::int64_t written = 0;

    for (const auto block : { 1, 2, 3, 4095, 64, kCapacity, 1, 60000, 2 * kCapacity + 3, 7, 4096 })
    {
        writeNumbered (ring, written, block);
        written += block;

        for (int attempt = 0; attempt < 40; ++attempt)
        {
            const auto length = static_cast<int> (random() % 3000);
            const auto from = written + 1000 - static_cast<std::int64_t> (random() % (kCapacity + 5000));
            std::vector<float> left (3001, kUntouched), right (left);
            float* const channels[] = { left.data(), right.data() };
            ring.read (channels, 1, begin + from, length);

            for (int i = 0; i < 3001; ++i)
            {
                const auto place = from + i - 1;
                const auto held = i >= 1 && i <= length &&
                                  place >= std::max<std::int64_t> (written - kCapacity, -kCapacity) && place < written;
                const auto expected = ! held ? kUntouched : place < 0 ? 0.0f : valueAt (place);
                ASSERT_EQ (left[static_cast<std::size_t> (i)], expected) << written << " " << from << " " << i;
                ASSERT_EQ (right[static_cast<std::size_t> (i)], held ? -expected : kUntouched);
            }
        }
    }
}

TEST (AudioRingTest, NeverGivesATornStretchToAReaderThatIsOverrun)
{
    AudioRing ring (1);
    const auto begin = ring.end();
    std::atomic<bool> done { false };
    std::thread writer (
        [&]
        {
            for (int block = 0; block < 3000; ++block)
                writeNumbered (ring, std::int64_t { block } * 1001, 1001);

            done = true;
        });

    int torn = 0;

    for (std::mt19937 random { 8 }; ! done;)
    {
        // Just where the writer takes away.
        const auto from = std::max<std::int64_t> (0, ring.end() - begin - kCapacity + 1000 - random() % 4000);
        std::array<float, 2048> samples {};
        float* const channels[] = { samples.data() };
        ring.read (channels, 0, begin + from, static_cast<int> (samples.size()));

        for (std::size_t i = 0; i < samples.size(); ++i)
            torn += samples[i] == 0.0f || samples[i] == valueAt (from + static_cast<int> (i)) ? 0 : 1;
    }

    writer.join();
    EXPECT_EQ (torn, 0);
}

TEST (PodStreamTest, GivesNothingOfItsFormerLife)
{
    PodStream stream (1);
    const std::vector<float> ones (300, 1.0f), twos (100, 2.0f);
    const float *const former[] = { ones.data() }, *const present[] = { twos.data() };
    const std::int64_t formerLabel = 5000, label = 7000;
    stream.begin (1);
    stream.write (former, 300, &formerLabel);
    stream.begin (2);
    EXPECT_EQ (stream.labels().check (0, formerLabel, 1), LabelRuns::Verdict::unknown);
    stream.write (present, 100, &label);
    EXPECT_EQ (stream.written(), 100);
    EXPECT_EQ (stream.labels().check (40, 5040, 100), LabelRuns::Verdict::open);
    EXPECT_EQ (stream.labels().check (0, 7000, 100), LabelRuns::Verdict::agrees);

    std::vector<float> samples (300, kUntouched), expected (samples);
    float* const target[] = { samples.data() };
    stream.read (target, 0, -100, 300);
    std::fill_n (expected.begin() + 100, 100, 2.0f);
    EXPECT_EQ (samples, expected);
}

TEST (PodStreamTest, KeepsToTheChannelsThatItsListenerWasTold)
{
    PodManager manager;
    TestListener listener;
    TestSender sender;
    manager.connect (&listener, 2);
    manager.connect (&sender, 1);
    manager.openStream (sender.id, 1);
    listener.choose (sender.id);
    ASSERT_EQ (manager.getPodInfo (sender.id).numChannels, 1);
    ASSERT_TRUE (manager.openStream (sender.id, 2));

    std::vector<float> ones (64, 1.0f), left (64), right (64);
    const float* const both[] = { ones.data(), nullptr };

    for (int block = 0; block < 100; ++block)
        manager.writeAudio (sender.id, both, 64);

    float* const told[] = { left.data(), nullptr };   // the second entry stands for memory that is not the listener's
    manager.readAudio (listener.id, told, 64, sender.id);
    EXPECT_EQ (left.front(), 0.0f);

    float* const toldAgain[] = { left.data(), right.data() };
    EXPECT_EQ (manager.getPodInfo (sender.id).numChannels, 2);
    manager.readAudio (listener.id, toldAgain, 64, sender.id);
    EXPECT_EQ (left.front(), 1.0f);
    EXPECT_EQ (right.front(), 0.0f);
}
