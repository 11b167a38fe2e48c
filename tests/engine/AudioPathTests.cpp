// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ChannelRule.h"
#include "engine/EngineRig.h"
#include "support/AudioThreadGuard.h"

#include <thread>

#include <gtest/gtest.h>

using namespace duoJudge;

namespace
{

/** Compares what left from `start` on with a signal that is late as it should be, bit for bit. */
void expectHeard (const juce::AudioSampleBuffer& heard, std::int64_t start, const EngineRig::Signal& signal)
{
    for (int channel = 0; channel < heard.getNumChannels(); ++channel)
        for (int i = 0; i < heard.getNumSamples(); ++i)
            ASSERT_EQ (heard.getSample (channel, i), EngineRig::late (signal, channel, start + i))
                << "channel " << channel << ", sample " << start + i;
}

}   // namespace

TEST (AudioPathTest, OwnSignalLeaves4096SamplesLateWithoutAPod)
{
    EngineRig rig;
    EXPECT_EQ (rig.processor().getLatencySamples(), 4096);
    expectHeard (rig.set (ToggleAB, 1.0f).run (3000), 0, {});
    rig.set (ToggleAB, 0.0f).run (1764);
    const auto start = rig.position();
    expectHeard (rig.run (9000), start, noise (1));
}

TEST (AudioPathTest, SameAudioOnAAndBIsTheSameToTheBitAcrossTheSwitch)
{
    const std::tuple<double, int, int, EngineRig::Signal> hosts[] {
        { 44100.0, 1, 1, noise (5) },   // rate, block, first block
        { 44100.0, 64, 17, sweep() },
        { 48000.0, 441, 3, noise (6) },
        { 96000.0, 4096, 1, noise (7) },
    };

    for (const auto& [rate, blockSize, firstBlock, signal] : hosts)
    {
        SCOPED_TRACE (blockSize);
        EngineRig rig (rate, blockSize);
        rig.addPod().play (signal, signal);
        rig.cycle (firstBlock);
        rig.run (6000);

        for (const auto toggle : { 1.0f, 0.0f })
        {
            const auto start = rig.position();
            expectHeard (rig.set (ToggleAB, toggle).run (12000), start, signal);
        }
    }
}

TEST (CrossfadeTest, LastsFortyMillisecondsAcrossBlocks)
{
    EngineRig rig (44100.0, 64);
    rig.addPod().run (6400);
    EXPECT_EQ (rig.set (ToggleAB, 1.0f).samplesUntil (noise (2)), 1764);
    EXPECT_EQ (rig.set (ToggleAB, 0.0f).samplesUntil (noise (1)), 1764);
}

TEST (CrossfadeTest, IsLinearAndTurnsRoundHalfWay)
{
    EngineRig rig (44100.0, 64);
    rig.addPod().play ([] (int, std::int64_t) { return 1.0f; }, [] (int, std::int64_t) { return -1.0f; }).run (6400);
    const auto towardsB = rig.set (ToggleAB, 1.0f).run (640);

    for (int i = 0; i < 640; ++i)
        ASSERT_NEAR (towardsB.getSample (1, i), 1.0f - 2.0f * static_cast<float> (i) / 1764.0f, 1e-5f) << i;

    // The gain that A had goes on as that of B, the outgoing one now, and falls over what was left.
    const auto back = rig.set (ToggleAB, 0.0f).run (1764);
    const auto gainLeft = 1.0f - 640.0f / 1764.0f;

    for (int i = 0; i < 1764 - 640; ++i)
        ASSERT_NEAR (back.getSample (0, i), 1.0f - 2.0f * (gainLeft - static_cast<float> (i) / 1764.0f), 1e-5f) << i;

    EXPECT_EQ (back.getSample (0, 1764 - 640), 1.0f);
}

TEST (CrossfadeTest, LastsOneBlockBeforeTheSampleRateIsKnown)
{
    Crossfade fader;
    juce::AudioSampleBuffer outgoing (1, 8), incoming (1, 8);
    outgoing.clear();
    std::fill_n (incoming.getWritePointer (0), 8, 1.0f);
    EXPECT_TRUE (fader.step (outgoing, incoming));
    EXPECT_FLOAT_EQ (outgoing.getSample (0, 4), 0.5f);
}

TEST (ChannelPairTest, PodReachesTheTrackAtItsGain)
{
    const std::tuple<int, int, int, float> pairs[] {
        { 1, 1, 0, 1.0f },   // of the pod, of the track, what its first channel gets, gain
        { 2, 2, 0, 1.0f },
        { 1, 2, 0, channelRule::kPairGain },
        { 2, 1, 1, 1.0f },
    };

    for (const auto& [podChannels, trackChannels, source, gain] : pairs)
    {
        EngineRig rig (44100.0, 64, trackChannels);
        rig.addPod (podChannels).set (ToggleAB, 1.0f).run (8192);
        const auto expected = EngineRig::late (noise (2), std::min (source + 1, podChannels - 1), rig.position() + 9);
        EXPECT_EQ (rig.run (64).getSample (trackChannels - 1, 9), expected * gain) << podChannels << trackChannels;
    }
}

TEST (ChannelPairTest, CrossfadeMixesEveryPairAtItsGain)
{
    const auto kPair = channelRule::kPairGain;

    for (const auto& [from, to, sum] :
         { std::tuple { 1, 1, 1.0f }, { 2, 2, 1.0f }, { 1, 2, kPair }, { 2, 1, 2.0f * kPair } })
    {
        Crossfade fader;
        juce::AudioSampleBuffer outgoing (to, 4), incoming (from, 4);
        outgoing.clear();

        for (int channel = 0; channel < from; ++channel)
            std::fill_n (incoming.getWritePointer (channel), 4, 1.0f);

        fader.step (outgoing, incoming);
        EXPECT_FLOAT_EQ (outgoing.getSample (to - 1, 2), 0.5f * sum) << from << " to " << to;
    }
}

TEST (AudioPathTest, SendGainReachesThePodAtTheNextTick)
{
    EngineRig rig;
    rig.addPod().set (ToggleAB, 1.0f).run (8192);
    rig.set (SendGain, 1.0f);
    const auto before = rig.position();
    expectHeard (rig.run (64), before, noise (2));
    rig.processor().timerCallback();
    const auto start = rig.position();
    EXPECT_FLOAT_EQ (rig.run (64).getSample (0, 5),
                     EngineRig::late (noise (2), 0, start + 5) * static_cast<float> (std::pow (10.0, 0.5)));
    EXPECT_EQ (rig.sender().manager->getPodInfo (rig.sender().id).gain, 1.0f);
}

TEST (AudioPathTest, LostPodGivesTheOwnSignalBackAfterACrossfadeAndListensAgainWhenItReturns)
{
    EngineRig rig;
    rig.addPod().set (ToggleAB, 1.0f).run (8192);
    rig.removePod();
    EXPECT_EQ (rig.processor().getSelectedPodId(), baylink::kNoPod);
    EXPECT_EQ (rig.processor().getParameter (ToggleAB), 0.0f);
    rig.run (1792);
    auto start = rig.position();
    expectHeard (rig.run (640), start, noise (1));

    rig.addPod().set (ToggleAB, 1.0f).run (8192);
    start = rig.position();
    expectHeard (rig.run (640), start, noise (2));
}

TEST (AudioPathTest, ThirdChannelPassesAtOnceAndPodMetersAreSilentWhileFadingToA)
{
    EngineRig surround (44100.0, 64, 3);
    const auto heard = surround.run (64);
    EXPECT_EQ (heard.getSample (2, 9), noise (1) (2, 9));
    EXPECT_EQ (heard.getSample (1, 9), 0.0f);

    EngineRig rig (44100.0, 4096);
    rig.addPod().run (8192);
    auto& podMeter = rig.processor().getMeter (3);
    EXPECT_GT (podMeter.getLevelDb(), -10.0f);
    rig.processor().timerCallback();
    rig.set (ToggleAB, 1.0f).set (ToggleAB, 0.0f).run (4096);
    EXPECT_EQ (podMeter.getLevelDb(), -1e10f + 3.0f);
    EXPECT_GT (rig.processor().getMeter (2).getLevelDb(), -10.0f);
}

TEST (AudioThreadTest, NeitherAllocatesNorCallsTheSystemAndTakesOneLock)
{
    EngineRig rig (44100.0, 64);
    rig.addPod().run (8192);
    juce::AudioSampleBuffer block (2, 64);
    juce::MidiBuffer midi;
    block.clear();

    const auto check = [&] (const char* what, int blocks, int locksPerBlock)
    {
        AudioThreadGuard::Counts counts;
        std::thread audio (
            [&]
            {
                AudioThreadGuard guard;

                for (int i = 0; i < blocks; ++i)
                    rig.processor().processBlock (block, midi);

                counts = guard.counts();
            });
        audio.join();
        EXPECT_EQ (counts.allocations, 0) << what;
        EXPECT_EQ (counts.systemCalls, 0) << what;

        if (AudioThreadGuard::canCountLocks())
        {
            EXPECT_EQ (counts.locks, locksPerBlock * blocks) << what;
        }
    };

    check ("on A", 10, 1);
    rig.set (ToggleAB, 1.0f);
    check ("in a crossfade to B", 28, 1);
    check ("on B", 10, 1);
    rig.set (ToggleAB, 0.0f);
    check ("in a crossfade to A", 28, 1);
    rig.click (Choose);
    check ("in the fall of a vote fade", 34, 1);
    rig.run (6400);
    rig.removePod();
    rig.run (6400);
    check ("without a pod", 10, 0);
}
