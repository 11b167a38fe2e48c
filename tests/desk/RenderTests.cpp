// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskRig.h"

#include <gtest/gtest.h>

#include <cmath>
#include <regex>

namespace
{

constexpr int kLength = 30011;   // samples, no multiple of a block

class RenderTest : public testing::Test
{
protected:
    DeskRig rig;
    const juce::AudioSampleBuffer a = DeskRig::noise (2, kLength, 1), b = DeskRig::noise (2, kLength + 700, 2);
    const juce::File fileA = rig.write ("a.wav", a), fileB = rig.write ("b.wav", b);
};

juce::AudioSampleBuffer sine (double hertz, int rate, int numSamples)
{
    juce::AudioSampleBuffer audio (1, numSamples);

    for (int i = 0; i < numSamples; ++i)
        audio.setSample (0, i,
                         static_cast<float> (0.5 * std::sin (juce::MathConstants<double>::twoPi * hertz * i / rate)));

    return audio;
}

}   // namespace

TEST_F (RenderTest, OfSourceAAloneIsTheFileItself)
{
    const auto out = rig.render (fileA, fileB, "0 select A");
    EXPECT_EQ (out.getNumSamples(), kLength);
    EXPECT_EQ (DeskRig::identify (out, a, b, 0, kLength), "A,A");
}

TEST_F (RenderTest, SwitchesWithTheSampleOfTheScriptAndCrossfades)
{
    // At the first sample, in the middle of a block, on a block's edge, and one sample later than it.
    for (const auto at : { 0, 7001, 512 * 20, 512 * 20 + 1 })
    {
        const auto time = juce::String (static_cast<double> (at) / DeskRig::kRate, 9);
        const auto out = rig.render (fileA, fileB, time + " select B");
        const auto fadeEnd = at + DeskRig::kCrossfade;
        EXPECT_EQ (DeskRig::identify (out, a, b, 0, at), "A,A") << at;
        EXPECT_EQ (DeskRig::identify (out, a, b, fadeEnd, kLength), "B,B") << at;

        const auto half = at + DeskRig::kCrossfade / 2;
        EXPECT_NEAR (out.getSample (0, half), 0.5f * (a.getSample (0, half) + b.getSample (0, half)), 1e-3f) << at;
    }
}

TEST_F (RenderTest, RevealsEveryVoteForTheSourceThatWasHeard)
{
    const auto out = rig.render (fileA, fileB, R"(0 test
        0.10 choose
        0.12 choose   # the first one still fades
        0.25 flip Y
        0.32 choose
        0.46 choose
        0.60 reveal
        0.66 end)");

    int forA = 0, forB = 0;

    for (const auto voteTime : { 0.10, 0.32, 0.46 })
    {
        const auto vote = static_cast<int> (std::lround (voteTime * DeskRig::kRate));
        const auto heard = DeskRig::identify (out, a, b, vote - 100, vote);
        heard == "A,A" ? ++forA : ++forB;
        EXPECT_TRUE (heard == "A,A" || heard == "B,B") << heard;
    }

    const auto percentA = std::lround (forA / 3.0 * 100.0);
    std::ostringstream line;
    line << "0.600 s  reveal: 3 votes: A " << forA << " (" << percentA << " %), B " << forB << " (" << 100 - percentA
         << " %)";
    EXPECT_TRUE (rig.printed.contains (line.str())) << rig.printed;
    EXPECT_TRUE (rig.printed.contains ("0.120 s  choose: passed over, the last vote is still fading")) << rig.printed;

    const auto revealed = static_cast<int> (0.6 * DeskRig::kRate) + DeskRig::kCrossfade + 1;
    EXPECT_EQ (DeskRig::identify (out, a, b, revealed, kLength), forA > forB ? "A,A" : "B,B");
}

TEST_F (RenderTest, GivesBTheSendGainOfTheScriptAtOnce)
{
    auto louder = b;
    louder.applyGain (std::pow (10.0f, -6.0f / 20.0f));
    const auto out = rig.render (fileA, fileB, "0 gain -6\n0 select B");

    for (int i = DeskRig::kCrossfade; i < kLength; ++i)
        ASSERT_NEAR (out.getSample (1, i), louder.getSample (1, i), 1e-6f) << i;
}

TEST_F (RenderTest, FitsMonoAndStereoToEachOther)
{
    const auto mono = DeskRig::noise (1, kLength, 3);
    const auto monoFile = rig.write ("mono.wav", mono);
    const auto until = kLength - 1;

    const auto bothMono = rig.render (monoFile, rig.write ("mono2.wav", DeskRig::noise (1, kLength, 4)), "0 select B");
    EXPECT_EQ (DeskRig::identify (bothMono, mono, DeskRig::noise (1, kLength, 4), DeskRig::kCrossfade, until), "B");

    const auto monoA = rig.render (monoFile, fileB, "0.5 select B");
    EXPECT_EQ (DeskRig::identify (monoA, mono, b, 0, DeskRig::kRate / 2), "A,A");
    EXPECT_EQ (DeskRig::identify (monoA, mono, b, DeskRig::kRate / 2 + DeskRig::kCrossfade, until), "B,B");

    const auto monoB = rig.render (fileA, monoFile, "0 select B");

    for (int i = DeskRig::kCrossfade; i < kLength; ++i)
        ASSERT_NEAR (monoB.getSample (i & 1, i), mono.getSample (0, i) * std::sqrt (0.5f), 1e-6f) << i;
}

TEST_F (RenderTest, LeavesSilenceBehindAShorterB)
{
    const auto out = rig.render (fileA, rig.write ("short.wav", DeskRig::noise (2, 9000, 5)), "0 select B");
    EXPECT_EQ (out.getMagnitude (9000, kLength - 9000), 0.0f);
    EXPECT_GT (out.getMagnitude (8990, 10), 0.0f);
}

TEST_F (RenderTest, WritesNothingWhereItCannot)
{
    desk::Material material;
    ASSERT_TRUE (desk::Material::load (fileA, fileB, {}, material).wasOk());
    desk::ComparisonGraph graph (material);
    std::ostringstream output;
    desk::ProgressLine progress (output, false);
    const desk::Script script;
    const auto target = rig.file ("no/such/folder/out.wav");
    const auto written = desk::OfflineRender (graph, script, progress).writeTo (target);
    EXPECT_EQ (written.getErrorMessage(), target.getFullPathName() + " cannot be written");
}

TEST (ResampledRecordingTest, LiesInPhaseWithItsOriginal)
{
    struct Case
    {
        int from, to;
        double hertz;
    };
    for (const auto& [from, to, hertz] :
         { Case { 48000, 44100, 997.0 }, Case { 44100, 48000, 15000.0 }, Case { 96000, 44100, 19000.0 },
           Case { 22050, 48000, 9000.0 }, Case { 44100, 44101, 5000.0 } })
    {
        desk::Recording recording;
        recording.audio = sine (hertz, from, from / 2);
        recording.sampleRate = from;
        recording.resample (to);
        EXPECT_EQ (recording.audio.getNumSamples(), (to + 1) / 2);

        const auto expected = sine (hertz, to, to / 2);

        for (int i = 1000; i < to / 2 - 1000; ++i)
            ASSERT_NEAR (recording.audio.getSample (0, i), expected.getSample (0, i), 3e-6f) << from << " " << to;
    }
}

TEST (ResampledRecordingTest, HoldsNothingThatTheLowerRateCannot)
{
    desk::Recording recording;
    recording.audio = sine (30000.0, 96000, 48000);
    recording.sampleRate = 96000;
    recording.resample (44100);
    EXPECT_LT (recording.audio.getMagnitude (1000, 20000), 1e-5f);
}

TEST (RecordingTest, ReadsEveryFormatWithUpToTwoChannels)
{
    DeskRig rig;
    const auto six = DeskRig::noise (6, 5000, 6);

    for (const auto* name : { "x.wav", "x.aiff", "x.flac", "x.ogg" })
    {
        desk::Recording recording;
        ASSERT_TRUE (desk::Recording::load (rig.write (name, six, 48000), recording).wasOk()) << name;
        EXPECT_EQ (recording.audio.getNumChannels(), 2) << name;
        EXPECT_EQ (recording.audio.getNumSamples(), 5000) << name;
        EXPECT_EQ (recording.describe(), juce::String (name) + ", 48 kHz, 6 channels");

        const auto allowed = juce::String (name) == "x.ogg" ? 1.0f : 1e-4f;   // lossy, and noise at that
        EXPECT_NEAR (recording.audio.getSample (1, 4000), six.getSample (1, 4000), allowed) << name;
    }
}
