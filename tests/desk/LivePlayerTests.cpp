// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskRig.h"
#include "LivePlayer.h"

#include <gtest/gtest.h>

constexpr int kLoop = 10007, kLatency = 4096;   // samples

/** A player whose audio device is the test: it asks for blocks of changing length. */
struct LivePlayerTest : testing::Test
{
    LivePlayerTest() { player.audioDeviceAboutToStart (nullptr); }

    juce::AudioSampleBuffer play (int numSamples)
    {
        juce::AudioSampleBuffer heard (2, numSamples);
        int length = 1;

        for (int done = 0; done < numSamples; done += length)
        {
            length = std::min (numSamples - done, length % 1500 + 331);
            float* const outputs[] { heard.getWritePointer (0, done), heard.getWritePointer (1, done) };
            player.audioDeviceIOCallbackWithContext (nullptr, 0, outputs, 2, length, {});
        }

        return heard;
    }

    /** From `start` on `heard` is to be the loop of `source`, which begins at `begin`. */
    static void expectLoop (const juce::AudioSampleBuffer& heard, const juce::AudioSampleBuffer& source, int start,
                            int begin)
    {
        for (int i = start; i < heard.getNumSamples(); ++i)
            for (int channel = 0; channel < 2; ++channel)
                ASSERT_EQ (heard.getSample (channel, i), source.getSample (channel, (i - begin + kLoop) % kLoop)) << i;
    }

    DeskRig rig;
    const desk::Material material { { "a", DeskRig::noise (2, kLoop, 1), DeskRig::kRate },
                                    { "b", DeskRig::noise (2, kLoop, 2), DeskRig::kRate } };
    desk::LiveDevice noDevice;   // never opened
    desk::ComparisonGraph graph { material };
    desk::LivePlayer player { graph, noDevice };
};

TEST_F (LivePlayerTest, LoopsBothSourcesWithoutAGap)
{
    player.setPlaying (true);
    expectLoop (play (3 * kLoop), material.a.audio, kLatency, kLatency);
    EXPECT_EQ (player.getPosition(), (3 * kLoop - kLatency) % kLoop);
    graph.writeParameter (duoJudge::ToggleAB, 1.0f);
    expectLoop (play (3 * kLoop), material.b.audio, DeskRig::kCrossfade, kLatency);
}

TEST_F (LivePlayerTest, GoesOnWhereListeningStopped)
{
    player.setPlaying (true);
    play (kLatency + 2000);
    player.setPlaying (false);
    EXPECT_EQ (play (2 * kLatency).getMagnitude (kLatency, kLatency), 0.0f);
    EXPECT_EQ (player.getPosition(), 2000);
    player.setPlaying (true);
    expectLoop (play (kLatency + 3000), material.a.audio, kLatency, kLatency - 2000);
}

TEST_F (LivePlayerTest, SeeksInBothSources)
{
    graph.writeParameter (duoJudge::ToggleAB, 1.0f);
    player.setPlaying (true);
    play (7000);
    player.seek (5000);
    expectLoop (play (kLatency + 3000), material.b.audio, kLatency, kLatency - 5000);
}
