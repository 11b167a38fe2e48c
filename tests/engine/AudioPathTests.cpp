// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ChannelRule.h"
#include "engine/EngineRig.h"

using namespace duoJudge;

TEST (AudioPathTest, OwnSignalLeaves4096SamplesLateWithoutAPod)
{
    EngineRig rig;
    EXPECT_EQ (rig.processor->getLatencySamples(), 4096);

    for (const auto toggle : { 1.0f, 0.0f, 1.0f })
        rig.set (ToggleAB, toggle).expect (3000, noise (1));
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

    // A has come up to this gain, and goes down again from there.
    expectFade (1.0f, 640 + 1, 640.0f / 1764.0f, 640, 1.0f, -1.0f);
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

TEST (CrossfadeTest, LastsOneBlockBeforeTheSampleRateIsKnown)
{
    Crossfade fader;

    for (const auto& [side, length, expected] :
         { std::tuple (Crossfade::Side::b, 4, 0.5f), { Crossfade::Side::b, 8, 1.0f }, { Crossfade::Side::a, 2, 1.0f } })
    {
        juce::AudioSampleBuffer own (1, length), pod (1, length);
        own.clear();
        std::fill_n (pod.getWritePointer (0), length, 1.0f);
        EXPECT_EQ (fader.mix (own, pod, side), length != 8);
        EXPECT_EQ (own.getSample (0, length - 2), expected) << length;
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

    // Another pod brings its own from its first block on.
    rig.addPod().set (ToggleAB, 1.0f).run (4096 + 1764);
    rig.expect (64, noise (2));
}

TEST (AudioPathTest, LostPodGivesTheOwnSignalBackAtOnceAndFadesInWhenItReturns)
{
    EngineRig rig;
    rig.addPod().set (ToggleAB, 1.0f).run (8192);
    rig.pod.reset();
    EXPECT_EQ (rig.processor->getSelectedPodId(), baylink::kNoPod);
    EXPECT_EQ (rig.processor->getParameter (ToggleAB), 0.0f);
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

TEST (AudioPathTest, TheFirstTwoChannelsOfATrackAreComparedAndAllAreLate)
{
    for (const auto podChannels : { 2, 8 })
    {
        EngineRig rig (44100.0, 64, 8);
        rig.addPod (podChannels).expect (8192, noise (1));
        rig.set (ToggleAB, 1.0f).run (1764);
        rig.expect (640, [] (int channel, std::int64_t at) { return noise (channel < 2 ? 2 : 1) (channel, at); });
        const auto voted = rig.click (Choose).run (2000).getSample (7, 1000);   // of a fall that takes 2205
        EXPECT_NEAR (voted, rig.late (noise (1), 7, rig.position - 1000) * (1205.0f / 2205.0f), 1e-4f);
    }
}

TEST (AudioPathTest, LeavesTheBypassAsIfItHadNeverBeenThere)
{
    for (const auto& [toggle, signal] : { std::pair (0.0f, noise (1)), { 1.0f, noise (2) } })
    {
        EngineRig rig (44100.0, 441);
        rig.addPod().set (ToggleAB, toggle).run (8820);
        rig.bypassed = true;
        rig.expect (4410, noise (1));
        rig.bypassed = false;
        const auto from = rig.position;
        const auto heard = rig.run (1764);   // B comes up from A
        EXPECT_EQ (heard.getSample (1, 0), rig.late (noise (1), 1, from));
        rig.expect (9000, signal);
    }
}

TEST (AudioPathTest, PodMetersAreSilentWhileFadingToA)
{
    EngineRig rig (44100.0, 4096);
    rig.addPod().run (8192);
    auto& podMeter = rig.processor->getMeter (3);
    EXPECT_GT (podMeter.getLevelDb(), -10.0f);
    rig.processor->timerCallback();
    rig.set (ToggleAB, 1.0f).run (4096);
    rig.set (ToggleAB, 0.0f).run (4096);
    EXPECT_EQ (podMeter.getLevelDb(), -1e10f);
    EXPECT_GT (rig.processor->getMeter (2).getLevelDb(), -10.0f);
}
