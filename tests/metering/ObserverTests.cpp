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

/** A user's eye on a meter that falls at the product's rate, and the time between two looks. */
struct Watch
{
    explicit Watch (OxJuceObserverLevelMeter& watched) : meter (watched)
    {
        meter.channel = 0;
        meter.readingOffsetDb = 3.0f;
        meter.fallRateDbPerSecond = 40.0f / 3.0f;
    }

    float after (double milliseconds) { return meter.getLevelDbAt (now += milliseconds); }

    OxJuceObserverLevelMeter& meter;
    double now = AnimationClock::read();
};

TEST (LevelMeterTest, RisesAtOnceFallsByItsReadersClockAndOutlivesWhatIsNoLevel)
{
    constexpr float silent = -1e10f, hour = 3.6e6f;
    const struct
    {
        float level, ms, held, instant;   // fed, since the last look, read in dB
    } rows[] { { 1.0f, 0, 3, 3 },         { 0.0f, 750, -7, silent },   { 0.0f, 750, -17, silent },
               { 0.1f, 0, -17, -17 },     { 1.0f, 1, 3, 3 },           { NAN, 75, 3, 3 },
               { INFINITY, 1, 63, 63 },   { 2e19f, 1500, 63, 63 },     { -1e30f, 1500, 63, 63 },
               { 0.0f, 750, 53, silent }, { 0.0f, -hour, 53, silent }, { 0.0f, 750, 43, silent },
               { 1.0f, 9999, 3, 3 } };

    OxJuceObserverLevelMeter peakMeter;
    OxJuceObserverRmsMeter rmsMeter;

    for (auto* const meter : { &peakMeter, static_cast<OxJuceObserverLevelMeter*> (&rmsMeter) })
    {
        Watch watch (*meter);

        for (const auto& row : rows)
        {
            meter->process (constant ({ row.level }));
            EXPECT_NEAR (watch.after (row.ms), row.held, 2e-3f) << row.level << " after " << row.ms;
            EXPECT_NEAR (meter->getInstantLevelDb(), row.instant, 2e-3f) << row.level;
        }
    }
}

TEST (LevelMeterTest, FallsAsForSilenceWhenNobodyProcessesForTheTimeOfTwoLevels)
{
    constexpr double hour = 3.6e6;

    for (const auto& [period, patience] : { std::pair (85.0f, 500.0), { 400.0f, 800.0 } })
    {
        OxJuceObserverRmsMeter meter;
        Watch watch (meter);
        meter.levelPeriodMs = period;
        meter.process (constant ({ 1.0f }));
        EXPECT_EQ (watch.after (90.0), 3.0f);
        EXPECT_EQ (watch.after (patience - 1.0), 3.0f) << period;
        EXPECT_NEAR (watch.after (75.0), 2.0f, 1e-3f) << period;
        EXPECT_NEAR (watch.after (750.0), -8.0f, 1e-3f) << period;
        meter.process (constant ({ 1.0f }));
        EXPECT_EQ (watch.after (1.0), 3.0f);
        meter.process (constant ({ 1.0f }));   // and then the window is closed
        EXPECT_LT (watch.after (hour), -100.0f);
    }
}

}   // namespace
