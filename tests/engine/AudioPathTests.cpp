// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ChannelRule.h"
#include "engine/EngineRig.h"

using namespace duoJudge;

TEST (AudioPathTest, OwnSignalLeaves4096SamplesLateWithoutAPod)
{
    EngineRig rig;
    EXPECT_EQ (rig.processor->getLatencySamples(), 4096);
    rig.set (ToggleAB, 1.0f).expect (3000, {});
    rig.set (ToggleAB, 0.0f).run (1764);
    rig.expect (9000, noise (1));
}

TEST (AudioPathTest, SameAudioOnAAndBIsTheSameToTheBitAcrossTheSwitch)
{
    for (const auto& [signal, rate, blockSize, firstBlock] : { std::tuple (noise (5), 44100.0, 1, 1),
                                                               { sweep(), 44100.0, 64, 17 },
                                                               { recording(), 48000.0, 441, 3 },
                                                               { noise (6), 96000.0, 4096, 1 } })
    {
        SCOPED_TRACE (blockSize);
        EngineRig rig (rate, blockSize);
        rig.addPod().play (signal, signal).run (firstBlock);
        rig.run (6000);

        for (const auto toggle : { 1.0f, 0.0f })
            rig.set (ToggleAB, toggle).expect (12000, signal);
    }
}

TEST (CrossfadeTest, IsLinearOverFortyMillisecondsAcrossBlocksAndTurnsRoundHalfWay)
{
    EngineRig rig (44100.0, 64);
    rig.addPod().play (level (1.0f), level (-1.0f)).run (6400);
    const auto expectFade = [&] (float toggle, int played, float gain, int length, float from, float to)
    {
        const auto heard = rig.set (ToggleAB, toggle).run (played);

        for (int i = 0; i < std::min (played, length); ++i)
            ASSERT_NEAR (heard.getSample (1, i), to + (from - to) * (gain - float (i) / 1764.0f), 1e-5f) << i;

        EXPECT_EQ (heard.getSample (0, played - 1) == to, played > length);
    };
    expectFade (1.0f, 1765, 1.0f, 1764, 1.0f, -1.0f);
    expectFade (0.0f, 640, 1.0f, 1764, -1.0f, 1.0f);

    // The gain that B had goes on as that of A, the outgoing one now, and falls over what was left.
    expectFade (1.0f, 1764 - 640 + 1, 1.0f - 640.0f / 1764.0f, 1764 - 640, 1.0f, -1.0f);
}

TEST (ChannelPairTest, PodReachesTheTrackAtItsGain)
{
    // The channels of the pod and of the track, which one the last of the track gets, and at what gain.
    for (const auto& [podChannels, trackChannels, source, gain] :
         { std::tuple (1, 1, 0, 1.0f), { 2, 2, 1, 1.0f }, { 1, 2, 0, channelRule::kPairGain }, { 2, 1, 1, 1.0f } })
    {
        EngineRig rig (44100.0, 64, trackChannels);
        rig.addPod (podChannels).set (ToggleAB, 1.0f).run (8192);
        const auto expected = EngineRig::late (noise (2), source, rig.position + 9);
        EXPECT_EQ (rig.run (64).getSample (trackChannels - 1, 9), expected * gain) << podChannels << trackChannels;
    }
}

TEST (ChannelPairTest, CrossfadeMixesEveryPairAtItsGainInOneBlockBeforeTheSampleRateIsKnown)
{
    constexpr auto kPair = channelRule::kPairGain;

    for (const auto& [from, to, sum] :
         { std::tuple { 1, 1, 1.0f }, { 2, 2, 1.0f }, { 1, 2, kPair }, { 2, 1, 2.0f * kPair } })
    {
        Crossfade fader;
        juce::AudioSampleBuffer outgoing (to, 4), incoming (from, 4);
        outgoing.clear();

        for (int channel = 0; channel < from; ++channel)
            std::fill_n (incoming.getWritePointer (channel), 4, 1.0f);

        EXPECT_TRUE (fader.step (outgoing, incoming));
        EXPECT_FLOAT_EQ (outgoing.getSample (to - 1, 2), 0.5f * sum) << from << " to " << to;
    }
}

TEST (AudioPathTest, SendGainReachesThePodAtTheNextTick)
{
    EngineRig rig;
    rig.addPod().set (ToggleAB, 1.0f).run (8192);
    rig.set (SendGain, 1.0f).expect (64, noise (2));
    rig.processor->timerCallback();
    const auto plain = EngineRig::late (noise (2), 0, rig.position + 5);
    EXPECT_FLOAT_EQ (rig.run (64).getSample (0, 5), plain * std::sqrt (10.0f));
    EXPECT_EQ (rig.pod->manager->getPodInfo (rig.pod->id).gain, 1.0f);
}

TEST (AudioPathTest, LostPodGivesTheOwnSignalBackAfterACrossfadeAndListensAgainWhenItReturns)
{
    EngineRig rig;
    rig.addPod().set (ToggleAB, 1.0f).run (8192);
    rig.pod.reset();
    EXPECT_EQ (rig.processor->getSelectedPodId(), baylink::kNoPod);
    EXPECT_EQ (rig.processor->getParameter (ToggleAB), 0.0f);
    rig.run (1792);
    rig.expect (640, noise (1));
    rig.addPod().set (ToggleAB, 1.0f).run (8192);
    rig.expect (640, noise (2));
}

TEST (AudioPathTest, MetersReadTheirOwnSignalThreeDecibelsUpAndAreSilentWhenTheHostStops)
{
    EngineRig rig (8000.0, 4096);   // hertz: a window takes half a second
    rig.addPod().run (8192);

    for (const bool isB : { false, true })
    {
        rig.set (ToggleAB, isB ? 1.0f : 0.0f).run (4096);
        const auto heard = rig.run (4096);

        for (const int channel : { 0, 1 })
        {
            auto& meter = rig.processor->getMeter (2 * channel + isB);
            const auto moment = AnimationClock::read();
            const auto decibels = juce::Decibels::gainToDecibels (heard.getRMSLevel (channel, 0, 4096)) + 3.0f;
            EXPECT_NEAR (meter.getLevelDbAt (moment), decibels, 1e-3f) << isB << channel;
            EXPECT_NEAR (meter.getLevelDbAt (moment + 1000.0), decibels, 1e-3f) << isB << channel;
            EXPECT_LT (meter.getLevelDbAt (moment + 1100.0), -1000.0f) << isB << channel;
        }
    }
}

TEST (AudioPathTest, ThirdChannelPassesAtOnceAndPodMetersAreSilentWhileFadingToA)
{
    EngineRig surround (44100.0, 64, 3);
    const auto heard = surround.run (64);
    EXPECT_EQ (heard.getSample (2, 9), noise (1) (2, 9));
    EXPECT_EQ (heard.getSample (1, 9), 0.0f);
    const auto voted = surround.click (Choose).run (2000).getSample (2, 1000);   // of a fall that takes 2205
    EXPECT_NEAR (voted, noise (1) (2, 1064) * (1205.0f / 2205.0f), 1e-4f);

    EngineRig rig (44100.0, 4096);
    rig.addPod().run (8192);
    auto& podMeter = rig.processor->getMeter (3);
    EXPECT_GT (podMeter.getLevelDb(), -10.0f);
    rig.processor->timerCallback();
    rig.set (ToggleAB, 1.0f).set (ToggleAB, 0.0f).run (4096);
    EXPECT_EQ (podMeter.getLevelDb(), -1e10f);
    EXPECT_GT (rig.processor->getMeter (2).getLevelDb(), -10.0f);
}
