// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/EngineRig.h"

#include <thread>

using namespace duoJudge;

namespace
{

/** A test under way that anybody may meddle with, told by words. */
struct VoteRig : EngineRig
{
    VoteRig() : EngineRig (44100.0, 64)
    {
        addPod().play (level (1.0f), level (-1.0f)).run (6400);
        processor->getStateInformation (state);
    }

    VoteRig& act (const juce::String& deed)
    {
        auto& judge = *processor;

        if (deed == "press" || deed == "release")
            set (Choose, deed == "press" ? 1.0f : 0.0f);
        else if (deed == "host presses" || deed == "host releases")
            judge.setParameter (Choose, deed == "host presses" ? 1.0f : 0.0f);
        else if (deed == "half a press")
            judge.setParameter (Choose, 0.5f);
        else if (deed == "end" || deed == "reveal")
            click (deed == "end" ? EndTest : Reveal);
        else if (deed == "host ends")
            judge.setParameter (EndTest, 1.0f), judge.setParameter (EndTest, 0.0f);
        else if (deed == "lose")
            pod.reset();
        else if (deed == "load")
            judge.setStateInformation (state.getData(), int (state.getSize()));
        else if (deed == "swap" || deed == "copy")
            set (deed == "swap" ? AB : AtoB, 1.0f);
        else if (deed == "undo" || deed == "redo")
            set (deed == "undo" ? Undo : Redo, 1.0f);
        else if (deed == "reset")
            judge.setParamDirect (ResetToPreset, 1.0f, false);
        else if (deed == "program")
            judge.setCurrentProgram (1);
        else if (deed == "wait")
            for (int tick = 0; tick < 40; ++tick)
                judge.timerCallback();
        else
            run (deed.getIntValue());

        return *this;
    }
    VoteRig& tell (const juce::String& story)
    {
        for (const auto& deed : juce::StringArray::fromTokens (story, ",", ""))
            act (deed.trim());

        return *this;
    }
    int votes() const { return processor->getVoteStatistics().votes; }

    juce::MemoryBlock state;
};

}   // namespace

TEST (VoteTest, CountsWhatAPressArmedAndNothingElse)
{
    const std::pair<const char*, int> stories[] {
        { "press, release", 1 },
        { "press, 99, release, 9000, press, release", 2 },
        { "host presses, half a press, host presses, host releases", 1 },
        { "press, release, press, release, 9000, press, release", 2 },
        { "press, release, press, 9000, release", 1 },
        // Held while something ends the test or brings other values.
        { "press, end, release", 0 },
        { "press, host ends, release", 0 },
        { "press, lose, release", 0 },
        { "press, load, release", 0 },
        { "press, copy, swap, release", 0 },
        { "press, undo, release", 0 },
        { "press, reset, release", 0 },
        { "press, program, release", 0 },
        // Values that come as a set or as a step of the history.
        { "press, copy, 99, release, 9000, swap, swap, swap", 1 },
        { "press, release, 9000, undo, undo, undo, redo, redo, redo, redo", 1 },
        // The host's echo of what it was told, in the fade and behind it, and its automation later on.
        { "press, host presses, release, host releases", 1 },
        { "press, release, host presses, 9000, host releases", 1 },
        { "press, release, 9000, host presses, host releases, host presses, host releases", 1 },
        { "press, release, 9000, wait, host presses, host releases", 2 },
    };

    for (const auto& [story, votes] : stories)
        EXPECT_EQ (VoteRig().tell (story).votes(), votes) << story;
}

TEST (VoteTest, AFadeEndsWithItsTestWithoutADrawOrAStep)
{
    for (const juce::String end : { "end", "reveal", "load", "lose", "swap" })
    {
        // Cast while no audio runs: the sound never hears of it.
        VoteRig silent;
        silent.tell ("press, release," + end);
        EXPECT_FALSE (silent.processor->isVoteFadeActive()) << end;
        EXPECT_EQ (silent.run (9000).findMinMax (1, 0, 9000).getStart(), 1.0f) << end;

        VoteRig rig;
        rig.tell ("press, release");
        const auto lowest = rig.run (640).getSample (0, 639);
        const auto heard = rig.act (end).run (9000);
        EXPECT_NEAR (heard.findMinMax (1, 0, 9000).getStart(), lowest, 2.0f / 2205.0f) << end;
        EXPECT_EQ (heard.getSample (1, 700), 1.0f) << end;
        EXPECT_EQ (rig.processor->getParameter (ToggleAB), 0.0f) << end;
        rig.tell ("press, release");
        EXPECT_EQ (rig.votes(), end == "end" || end == "lose" ? 1 : 2) << "the next vote counts";
    }
}

TEST (VoteTest, NoneIsLostBetweenThreadsAndEachHasASource)
{
    Ballot ballot;
    std::array<std::atomic<int>, 2> cast {};
    const auto vote = [&] (bool forB)
    {
        for (int i = 0; i < 20000; ++i)
        {
            ballot.press();
            cast[forB] += ballot.release (forB) ? 1 : 0;
            ballot.endFade();
        }
    };
    std::thread other (vote, true);
    vote (false), other.join();
    const auto votes = ballot.getStatistics();
    EXPECT_EQ (std::tuple (votes.votes, votes.votesForA, votes.votesForB),
               std::tuple (cast[0] + cast[1], int (cast[0]), int (cast[1])));
    EXPECT_GT (votes.votes, 20000);
}

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
