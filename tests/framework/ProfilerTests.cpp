// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Rig.h"

TEST (ProfilerTest, ReportsRunningAveragesAndTheHighest)
{
    for (const auto& [measurements, expected, report] : { std::tuple (0, 0.0, "It 0.00 (0.00)"),
                                                          { 100, 0.0, "It 6.34 (10.00), freq = 78.9Hz" },
                                                          { 1, 40.0, "It 0.25% (25.00%), freq = 5000.0Hz" } })
    {
        OxJuceProfilerItem item ("It");
        item.enabled = item.showFrequency = true;

        for (int i = 1; i <= measurements; ++i)   // 10 ms each, one every 20 ms
        {
            item.startTime = i * 20.0;
            item.expectedDuration = expected;
            item.stopAt (item.startTime + 10.0);
            item.stopAt (1e9);   // nothing runs any more
        }
        EXPECT_EQ (item.getReport(), report);
    }
}

TEST (ProfilerTest, MeasuresBlocksAgainstRealTimeAndTheTimerWhileItIsShown)
{
    auto rig = std::make_unique<Rig>();
    auto &blocks = rig->profilerItems[0], &ticks = rig->profilerItems[1];
    juce::AudioSampleBuffer block (2, 441);   // 10 ms

    for (const auto shown : { false, true, false })
    {
        rig->setParamDirect (duoJudge::ShowProfiling, shown ? 0.3f : 0.0f, false);
        rig->updateProfilerEnabled();
        rig->processBlock (block, rig->midi);
        rig->timerCallback();
        EXPECT_EQ (std::exchange (blocks.lastStartTime, 0.0) > 0.0, shown);
        EXPECT_EQ (std::exchange (ticks.lastStartTime, 0.0) > 0.0, shown);
        EXPECT_TRUE (rig->profilerItems[3].enabled == shown && rig->profilerEnabled == shown);
    }
    EXPECT_DOUBLE_EQ (blocks.maxLoad, blocks.maxDuration / 10.0);
}
