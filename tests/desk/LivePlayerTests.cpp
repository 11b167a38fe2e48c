// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskOptions.h"
#include "DeskRig.h"
#include "JudgeKeys.h"
#include "LivePlayer.h"

constexpr int kLoop = 10007, kLatency = 4096;   // samples

/** A player whose audio device is the test: it asks for blocks of changing length. */
struct LivePlayerTest : testing::Test
{
    LivePlayerTest() { player.deviceStarts (DeskRig::kRate); }

    Audio play (int numSamples)
    {
        Audio heard (2, numSamples);

        for (int done = 0, length = 1; done < numSamples; done += length)
        {
            length = std::min (numSamples - done, length % 1500 + 331);
            float* const outputs[] { heard.getWritePointer (0, done), heard.getWritePointer (1, done) };
            player.audioDeviceIOCallbackWithContext (nullptr, 0, outputs, 2, length, {});
        }

        return heard;
    }

    /** From `start` on the next `numSamples` are to be the loop of `source`, fed from `position` on. */
    void expectLoop (int numSamples, const Audio& source, int start, juce::int64 position)
    {
        const auto heard = play (numSamples);
        const auto offset = static_cast<int> (position) + kLoop - kLatency;

        for (int i = 2 * start; i < 2 * numSamples; ++i)
            ASSERT_EQ (heard.getSample (i & 1, i / 2), source.getSample (i & 1, (i / 2 + offset) % kLoop)) << i / 2;
    }

    DeskRig rig;
    const desk::Material material { { "a", noise (2, kLoop, 1), DeskRig::kRate },
                                    { "b", noise (2, kLoop, 2), DeskRig::kRate } };
    desk::LiveDevice noDevice;   // never opened
    const std::unique_ptr<desk::ComparisonGraph> graph = DeskRig::makeGraph (material);
    desk::LivePlayer player { *graph, noDevice };
};

TEST_F (LivePlayerTest, LoopsBothSourcesWithoutAGapAndSeeksInThem)
{
    player.setPlaying (true);
    expectLoop (3 * kLoop, material.a.audio, kLatency, 0);
    EXPECT_EQ (player.getPosition(), (3 * kLoop - kLatency) % kLoop);
    graph->writeParameter (desk::Parameter::toggleAB, 1.0f);
    expectLoop (3 * kLoop, material.b.audio, DeskRig::kCrossfade, 3 * kLoop);

    player.seek (5000);
    play (1000);
    EXPECT_EQ (player.getPosition(), 5000);
    expectLoop (kLatency + 3000, material.b.audio, kLatency - 1000, 6000);
}

TEST_F (LivePlayerTest, GoesOnWhereListeningStopped)
{
    // How long to play, and where that leads: nowhere until the first sample is heard.
    for (const auto& [length, end] : { std::pair (kLatency + 9, 9), { kLatency - 1, 9 }, { kLatency + 1, 10 } })
    {
        player.setPlaying (true);
        expectLoop (length, material.a.audio, std::min (length, kLatency), player.getPosition());
        EXPECT_EQ (player.getPosition(), end);
        player.setPlaying (false);
        EXPECT_EQ (play (2 * kLatency).getMagnitude (kLatency, kLatency), 0.0f);
        EXPECT_EQ (player.getPosition(), end);
    }
}

TEST_F (LivePlayerTest, IsSilentWhileTheDeviceRunsAtAnotherRate)
{
    player.setPlaying (true);
    player.deviceStarts (48000.0);
    EXPECT_EQ (play (kLoop).getMagnitude (0, kLoop), 0.0f);
    EXPECT_TRUE (player.isOffRate());
    player.deviceStarts (DeskRig::kRate);
    expectLoop (kLoop, material.a.audio, kLatency, 0);
}

TEST_F (LivePlayerTest, TheHelpPromisesTheKeysThatActAndNoOther)
{
    const auto help = desk::DeskOptions::getUsage().fromFirstOccurrenceOf ("Keys of the window:", false, false);
    const auto promised = juce::StringArray::fromTokens (help.upToFirstOccurrenceOf ("\n", false, false), " ,.", {});
    desk::JudgeKeys keys (*graph);

    for (juce::juce_wchar letter = 'A'; letter <= 'Z'; ++letter)
    {
        const auto acts = keys.actOnKey ({ static_cast<int> (letter), {}, letter });
        EXPECT_EQ (acts, promised.contains (juce::String::charToString (letter))) << char (letter);
    }
}
