// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskRig.h"
#include "LivePlayer.h"

#include <gtest/gtest.h>

namespace
{

constexpr int kLoop = 10007, kLatency = 4096;   // samples

/** A player whose audio device is the test: it asks for blocks of changing length. */
class LivePlayerTest : public testing::Test
{
protected:
    LivePlayerTest()
    {
        material.a.audio = DeskRig::noise (2, kLoop, 1);
        material.b.audio = DeskRig::noise (2, kLoop, 2);
        material.a.sampleRate = material.b.sampleRate = DeskRig::kRate;
        graph = std::make_unique<desk::ComparisonGraph> (material);
        player = std::make_unique<desk::LivePlayer> (*graph, noDevice);
        player->audioDeviceAboutToStart (nullptr);
    }

    juce::AudioSampleBuffer play (int numSamples)
    {
        juce::AudioSampleBuffer heard (2, numSamples);
        int length = 1;

        for (int done = 0; done < numSamples; done += length)
        {
            length = std::min (numSamples - done, length % 1500 + 331);
            float* const outputs[] { heard.getWritePointer (0, done), heard.getWritePointer (1, done) };
            player->audioDeviceIOCallbackWithContext (nullptr, 0, outputs, 2, length, {});
        }

        return heard;
    }

    /** @returns the first sample of `heard` from `start` on that is not the loop of `source`, which begins at `begin` */
    static int findFault (const juce::AudioSampleBuffer& heard, const juce::AudioSampleBuffer& source, int start,
                          int begin)
    {
        for (int i = start; i < heard.getNumSamples(); ++i)
            for (int channel = 0; channel < 2; ++channel)
                if (heard.getSample (channel, i) != source.getSample (channel, (i - begin + kLoop) % kLoop))
                    return i;

        return heard.getNumSamples();
    }

    DeskRig rig;
    desk::Material material;
    desk::LiveDevice noDevice;   // never opened
    std::unique_ptr<desk::ComparisonGraph> graph;
    std::unique_ptr<desk::LivePlayer> player;
};

}   // namespace

TEST_F (LivePlayerTest, LoopsBothSourcesWithoutAGap)
{
    player->setPlaying (true);
    auto heard = play (3 * kLoop);
    EXPECT_EQ (findFault (heard, material.a.audio, kLatency, kLatency), heard.getNumSamples());
    EXPECT_EQ (player->getPosition(), (3 * kLoop - kLatency) % kLoop);

    graph->writeParameter (duoJudge::ToggleAB, 1.0f);
    heard = play (3 * kLoop);
    EXPECT_EQ (findFault (heard, material.b.audio, DeskRig::kCrossfade, kLatency), heard.getNumSamples());
}

TEST_F (LivePlayerTest, GoesOnWhereListeningStopped)
{
    player->setPlaying (true);
    play (kLatency + 2000);
    player->setPlaying (false);
    EXPECT_EQ (play (2 * kLatency).getMagnitude (kLatency, kLatency), 0.0f);
    EXPECT_EQ (player->getPosition(), 2000);

    player->setPlaying (true);
    const auto heard = play (kLatency + 3000);
    EXPECT_EQ (findFault (heard, material.a.audio, kLatency, kLatency - 2000), heard.getNumSamples());
}

TEST_F (LivePlayerTest, SeeksInBothSources)
{
    graph->writeParameter (duoJudge::ToggleAB, 1.0f);
    player->setPlaying (true);
    play (7000);
    player->seek (5000);
    const auto heard = play (kLatency + 3000);
    EXPECT_EQ (findFault (heard, material.b.audio, kLatency, kLatency - 5000), heard.getNumSamples());
}
