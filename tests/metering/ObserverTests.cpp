// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxJuceObserverRmsMeter.h"

#include <array>

#include <gtest/gtest.h>

namespace
{

juce::AudioSampleBuffer constant (std::initializer_list<float> levels)
{
    juce::AudioSampleBuffer block (static_cast<int> (levels.size()), 4096);

    for (int channel = 0; channel < block.getNumChannels(); ++channel)
        std::fill_n (block.getWritePointer (channel), 4096, levels.begin()[channel]);

    return block;
}

TEST (RmsMeterTest, ReadsTheLatestWholeWindowWhateverTheBlockSize)
{
    juce::AudioSampleBuffer signal (1, 12288);

    for (int i = 0; i < 12288; ++i)
        signal.setSample (0, i, (i % 2 == 0 ? 1.0f : -1.0f) / static_cast<float> (2 << i / 4096));

    for (const int blockSize : { 1, 64, 1000, 10000 })
    {
        OxJuceObserverRmsMeter meter;
        meter.channel = 0;
        int fed = 0;

        for (const auto& [samples, level] :
             { std::pair (4095, 0.0f), { 4096, 0.5f }, { 12287, 0.25f }, { 12288, 0.125f } })
        {
            for (int run = 0; fed < samples; fed += run)
            {
                run = std::min (blockSize, samples - fed);
                meter.process (juce::AudioSampleBuffer (signal.getArrayOfWritePointers(), 1, fed, run));
            }
            EXPECT_FLOAT_EQ (meter.getLevelDb(), linearToDecibels (level)) << blockSize;
        }
    }
}

TEST (LevelMeterTest, WatchesTheSignalThatItsChannelNames)
{
    constexpr float kept = 1.0f;
    const struct
    {
        int channel;
        std::initializer_list<float> levels;
        float peak, rms;
    } rows[] { { -1, { 0.5f, 0.0f }, kept, kept },    { 0, { -0.5f, 0.0f }, 0.5f, 0.5f },
               { 1, { 0.5f, 0.0f }, 0.0f, 0.0f },     { 1, { 0.5f }, kept, kept },
               { 100, { 0.5f, 0.0f }, 0.25f, 0.25f }, { 100, { 0.5f }, kept, kept },
               { 101, { 0.0f, 0.5f }, 0.25f, 0.25f }, { 101, { 0.5f, 0.5f }, 0.0f, 0.0f },
               { 101, { 0.5f }, kept, kept },         { 102, { 0.0f, -0.5f, 0.2f }, 0.5f, kept } };

    for (const auto& row : rows)
    {
        OxJuceObserverLevelMeter peakMeter;
        OxJuceObserverRmsMeter rmsMeter;

        for (auto* const meter : { &peakMeter, static_cast<OxJuceObserverLevelMeter*> (&rmsMeter) })
        {
            meter->channel = 0;
            meter->process (constant ({ kept }));
            meter->getLevelDb();
            meter->channel = row.channel;
            meter->process (constant (row.levels));
            EXPECT_EQ (meter->getLevelDb(), linearToDecibels (meter == &peakMeter ? row.peak : row.rms)) << row.channel;
        }
    }
}

TEST (LevelMeterTest, RisesAtOnceFallsByItsReadersClockAndOutlivesWhatIsNotANumber)
{
    OxJuceObserverRmsMeter meter;
    meter.channel = 0;
    meter.readingOffsetDb = 3.0f;
    meter.fallRateDbPerSecond = 40.0f / 3.0f;
    const auto start = juce::Time::getCurrentTime();

    const std::array<float, 4> rows[] { { 1.0f, 0.0f, 3.0f, 3.0f },        { 0.0f, 750.0f, -7.0f, -1e10f },
                                        { 0.0f, 1500.0f, -17.0f, -1e10f }, { 0.1f, 1500.0f, -17.0f, -17.0f },
                                        { 1.0f, 1501.0f, 3.0f, 3.0f },     { NAN, 1502.0f, NAN, NAN },
                                        { 1.0f, 1503.0f, 3.0f, 3.0f } };

    for (const auto& [level, ms, held, instant] : rows)
    {
        meter.process (constant ({ level }));
        const auto read = meter.getLevelDbAt (start + juce::RelativeTime (ms / 1000.0));
        EXPECT_TRUE (std::isnan (held) ? std::isnan (read) : std::abs (read - held) < 1e-3f) << ms << ": " << read;
        EXPECT_TRUE (std::isnan (instant) || std::abs (meter.getInstantLevelDb() - instant) < 1e-3f) << ms;
    }
}

}   // namespace
