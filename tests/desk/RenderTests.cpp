// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskRig.h"

#include <gtest/gtest.h>

#include <cmath>

constexpr int kLength = 30011;   // samples, no multiple of a block

struct RenderTest : testing::Test
{
    DeskRig rig;
    const juce::AudioSampleBuffer a = DeskRig::noise (2, kLength, 1), b = DeskRig::noise (2, kLength + 700, 2);
    const juce::File fileA = rig.write ("a.wav", a), fileB = rig.write ("b.wav", b);
};

TEST_F (RenderTest, SwitchesWithTheSampleOfTheScriptAndCrossfades)
{
    const auto mono = DeskRig::noise (1, kLength, 3), mono2 = DeskRig::noise (1, kLength, 4);

    // At the first sample, in the middle of a block, on a block's edge, and one sample later than it.
    const std::tuple<int, const juce::AudioSampleBuffer*, const juce::AudioSampleBuffer*> cases[] {
        { 0, &a, &b },           { 7001, &a, &b },    { 512 * 20, &a, &b }, { 512 * 20 + 1, &a, &b },
        { 9000, &mono, &mono2 }, { 22050, &mono, &b }
    };

    for (const auto& [at, from, to] : cases)
    {
        const auto script = juce::String (static_cast<double> (at) / DeskRig::kRate, 9) + " select B";
        const auto out = rig.render (rig.write ("from.wav", *from), rig.write ("to.wav", *to), script);
        EXPECT_EQ (out.getNumSamples(), kLength);
        EXPECT_EQ (out.getNumChannels(), to->getNumChannels());
        EXPECT_EQ (DeskRig::identify (out, *from, *to, 0, at), "A") << at;
        EXPECT_EQ (DeskRig::identify (out, *from, *to, at + DeskRig::kCrossfade, kLength), "B") << at;

        const auto half = at + DeskRig::kCrossfade / 2;
        EXPECT_NEAR (out.getSample (0, half), 0.5f * (from->getSample (0, half) + to->getSample (0, half)), 1e-3f);
    }
}

TEST_F (RenderTest, PlaysBAtItsGainAndSilenceBehindIt)
{
    const std::tuple<int, int, const char*, float> cases[] { { 2, kLength, "0 gain -6\n0 select B", 0.5011872f },
                                                             { 1, kLength + 1, "0 select B", std::sqrt (0.5f) },
                                                             { 2, 9000, "0 select B", 1.0f } };

    for (const auto& [channels, length, script, gain] : cases)
    {
        const auto other = DeskRig::noise (channels, length, 5);
        const auto out = rig.render (fileA, rig.write ("other.wav", other), script);

        for (int i = DeskRig::kCrossfade; i < kLength; ++i)
        {
            const auto expected = i < length ? gain * other.getSample (i % channels, i) : 0.0f;
            ASSERT_NEAR (out.getSample (i & 1, i), expected, 1e-6f) << i;
        }
    }
}

TEST_F (RenderTest, RevealsEveryVoteForTheSourceThatWasHeard)
{
    // The second vote falls into the fade after the first.
    const auto* const script = "0 test\n0.10 choose\n0.12 choose\n0.25 flip Y\n0.32 choose\n0.46 choose\n"
                               "0.60 reveal\n0.66 end";
    const auto out = rig.render (fileA, fileB, script);
    int forA = 0;

    for (const auto voteTime : { 0.10, 0.32, 0.46 })
    {
        const auto vote = static_cast<int> (std::lround (voteTime * DeskRig::kRate));
        const auto heard = DeskRig::identify (out, a, b, vote - 100, vote);
        forA += heard == "A" ? 1 : 0;
        EXPECT_TRUE (heard == "A" || heard == "B") << heard;
    }

    const char* const results[] { "A 0 (0 %), B 3 (100 %)", "A 1 (33 %), B 2 (67 %)", "A 2 (67 %), B 1 (33 %)",
                                  "A 3 (100 %), B 0 (0 %)" };
    const auto line = juce::String ("0.600 s  reveal: 3 votes: ") + results[forA];
    EXPECT_TRUE (rig.printed.contains (line)) << rig.printed;
    EXPECT_TRUE (rig.printed.contains ("0.120 s  choose: passed over, the last vote is still fading")) << rig.printed;

    const auto revealed = static_cast<int> (0.6 * DeskRig::kRate) + DeskRig::kCrossfade + 1;
    EXPECT_EQ (DeskRig::identify (out, a, b, revealed, kLength), forA >= 2 ? "A" : "B");
}

TEST (RecordingTest, ResampledKeepsInPhaseWhatTheNewRateHoldsAndNothingElse)
{
    const auto sine = [] (double hertz, int rate, int i)
    { return static_cast<float> (0.5 * std::sin (juce::MathConstants<double>::twoPi * hertz * i / rate)); };

    const std::tuple<int, int, double> cases[] { { 48000, 44100, 997.0 },   { 44100, 48000, 15000.0 },
                                                 { 96000, 44100, 19000.0 }, { 22050, 48000, 9000.0 },
                                                 { 44100, 44101, 5000.0 },  { 96000, 44100, 22500.0 } };

    for (const auto& [from, to, hertz] : cases)
    {
        desk::Recording recording;
        recording.audio.setSize (1, from / 2);
        recording.sampleRate = from;

        for (int i = 0; i < from / 2; ++i)
            recording.audio.setSample (0, i, sine (hertz, from, i));

        recording.resample (to);
        EXPECT_EQ (recording.audio.getNumSamples(), (to + 1) / 2);

        for (int i = 1000; i < to / 2 - 1000; ++i)
            ASSERT_NEAR (recording.audio.getSample (0, i), hertz < to / 2 ? sine (hertz, to, i) : 0.0f, 1e-6f)
                << from << " to " << to << ", sample " << i;
    }
}

TEST (RecordingTest, ReadsEveryFormatWithUpToTwoChannels)
{
    DeskRig rig;
    const auto six = DeskRig::noise (6, 5000, 6);

    for (const juce::String name : { "x.wav", "x.aiff", "x.flac", "x.ogg" })
    {
        desk::Recording recording;
        ASSERT_TRUE (desk::Recording::load (rig.write (name, six, 48000), recording).wasOk()) << name;
        EXPECT_EQ (recording.audio.getNumChannels(), 2) << name;
        EXPECT_EQ (recording.audio.getNumSamples(), 5000) << name;
        EXPECT_EQ (recording.describe(), name + ", 48 kHz, 6 channels");

        const auto allowed = name == "x.ogg" ? 1.0f : 1e-4f;   // lossy, and noise at that
        EXPECT_NEAR (recording.audio.getSample (1, 4000), six.getSample (1, 4000), allowed) << name;
    }
}
