// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/EngineRig.h"

using namespace duoJudge;

TEST (BlindTestTest, LabelsAlwaysStandForDifferentSources)
{
    EngineRig rig;
    rig.set (ToggleXY, 1.0f);
    EXPECT_EQ (rig.processor->getParameter (ToggleAB), 1.0f);
    rig.processor->setParameter (ToggleXY, 1.0f);
    EXPECT_EQ (rig.processor->getParameter (ToggleAB), 1.0f) << "the same label again flips nothing";
    rig.set (ToggleXY, 0.0f);
    EXPECT_EQ (rig.processor->getParameter (ToggleAB), 0.0f);
    rig.set (Undo, 1.0f);
    EXPECT_EQ (rig.processor->getParameter (ToggleXY) + rig.processor->getParameter (ToggleAB), 0.0f);
}

TEST (VoteFadeTest, FallsDrawsInSilenceAndRisesOnTheNewSource)
{
    EngineRig rig (48000.0, 64);
    rig.addPod().play (level (1.0f), level (-1.0f)).run (6400);
    const auto heard = rig.click (Choose).run (6400);
    auto gain = 1.0f;
    int sample = 0;

    for (; gain > 0.0f; ++sample, gain = std::max (0.0f, gain - 20.0f / 48000.0f))
        ASSERT_EQ (heard.getSample (1, sample), gain) << sample;

    EXPECT_NEAR (sample, 2400, 2) << "50 ms";
    const auto turn = (sample + 63) / 64 * 64;   // the draw waits for the end of the block
    EXPECT_EQ (heard.getMagnitude (sample, turn + 1 - sample), 0.0f);
    EXPECT_EQ (rig.processor->getParameter (ToggleAB), 1.0f);
    EXPECT_GT (heard.getSample (0, turn + 200), 0.0f) << "the crossfade from A begins under the rise";
    EXPECT_NEAR (heard.getSample (0, turn + 2200), -2200.0f / 2400.0f, 1e-3f);
    EXPECT_EQ (heard.getSample (0, turn + 2402), -1.0f);
    EXPECT_FALSE (rig.processor->isVoteFadeActive());
}

TEST (VoteFadeTest, DrawOfTheSameSourceBringsItBackWithoutACrossfade)
{
    EngineRig rig (48000.0, 64);
    rig.processor->setCoin ([] { return 0; });
    rig.addPod().play (level (1.0f), noise (3)).run (6400);
    const auto heard = rig.click (Choose).run (6400);

    for (int i = 0; i < 2300; ++i)
        ASSERT_NEAR (heard.getSample (0, 2432 + i), static_cast<float> (i) / 2400.0f, 1e-3f) << i;
}

TEST (CoinTest, IsFairAndOtherInEveryRun)
{
    const auto coin = makeFairCoin(), other = makeFairCoin();
    int heads = 0, equal = 0;

    for (int i = 0; i < 10000; ++i)
    {
        const auto toss = coin();
        heads += toss;
        equal += toss == other() ? 1 : 0;
    }

    // Six standard deviations of a fair coin around 5000.
    EXPECT_NEAR (heads, 5000, 300);
    EXPECT_NEAR (equal, 5000, 300);
}
