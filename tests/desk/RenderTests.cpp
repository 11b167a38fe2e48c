// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskRig.h"

#include <cmath>

constexpr int kLength = 30011;   // samples, no multiple of a block

struct RenderTest : testing::Test
{
    DeskRig rig;
    const Audio a = noise (2, kLength, 1), b = noise (2, kLength + 700, 2);
};

TEST_F (RenderTest, SwitchesWithTheSampleOfTheScriptAndCrossfades)
{
    const auto mono = noise (1, kLength, 3), mono2 = noise (1, kLength, 4);
    const auto six = noise (6, kLength, 5);

    // At the first sample, in the middle of a block, on a block's edge, and one sample later than it.
    const std::tuple<int, juce::String, const Audio&, const Audio&> cases[] {
        { 0, ".wav", a, b },           { 7001, ".aiff", a, b },
        { 512 * 20, ".flac", six, b }, { 512 * 20 + 1, ".wav", mono, mono2 },
        { 22050, ".wav", mono, b },    { 22050, ".flac", a, mono },
        { 7777, ".wav", a, a }
    };

    for (const auto& [at, format, from, to] : cases)
    {
        const auto script = juce::String (static_cast<double> (at) / DeskRig::kRate, 9) + " select B";
        const auto out = rig.render (from, to, script, format);
        EXPECT_EQ (out.getNumSamples(), kLength);
        EXPECT_EQ (out.getNumChannels(), from.getNumChannels() + to.getNumChannels() > 2 ? 2 : 1);
        EXPECT_EQ (DeskRig::findFault (out, from, 0, at), at);
        EXPECT_EQ (DeskRig::findFault (out, to, at + DeskRig::kCrossfade, kLength), kLength) << at;
        const auto half = at + DeskRig::kCrossfade / 2;
        EXPECT_NEAR (out.getSample (0, half), 0.5f * (from.getSample (0, half) + to.getSample (0, half)), 1e-3f);
    }
}

TEST_F (RenderTest, PlaysBAtItsGainFromTheSampleOfTheScriptOnAndSilenceBehindIt)
{
    const auto shorter = noise (2, 9000, 5);
    const auto out = rig.render (a, shorter, "0 gain -6\n0 select B\n.1 gain 6");

    for (int i = DeskRig::kCrossfade; i < kLength; ++i)
    {
        const auto expected = i < 9000 ? shorter.getSample (i & 1, i) * (i < 4410 ? 0.5011872f : 1.995262f) : 0.0f;
        ASSERT_NEAR (out.getSample (i & 1, i), expected, 1e-6f) << i;
    }
}

TEST_F (RenderTest, RevealsEveryVoteForTheSourceThatWasHeard)
{
    // The second vote falls into the fade after the first.
    const auto* const script = "0 test\n.1 choose\n.12 choose\n.25 flip Y\n.32 choose\n.46 choose\n.6 reveal\n.66 end";
    const auto out = rig.render (a, b, script);
    int forA = 0;

    for (const auto voteTime : { 0.10, 0.32, 0.46 })
    {
        const auto vote = static_cast<int> (std::lround (voteTime * DeskRig::kRate));
        const auto heardA = DeskRig::findFault (out, a, vote - 100, vote) == vote;
        forA += heardA ? 1 : 0;
        EXPECT_TRUE (heardA || DeskRig::findFault (out, b, vote - 100, vote) == vote) << voteTime;
    }

    const char* const results[] { "A 0 (0 %), B 3 (100 %)", "A 1 (33 %), B 2 (67 %)", "A 2 (67 %), B 1 (33 %)",
                                  "A 3 (100 %), B 0 (0 %)" };
    EXPECT_TRUE (rig.printed.contains ("0.600 s  reveal: 3 votes: " + juce::String (results[forA]))) << rig.printed;
    EXPECT_TRUE (rig.printed.contains ("0.120 s  choose: passed over, the last vote is still fading")) << rig.printed;

    const auto revealed = static_cast<int> (0.6 * DeskRig::kRate) + DeskRig::kCrossfade + 1;
    EXPECT_EQ (DeskRig::findFault (out, forA >= 2 ? a : b, revealed, kLength), kLength);
}

TEST (RecordingTest, HoldsWhatATruncatedFileHasAndTellsWhatItLacks)
{
    DeskRig rig;

    for (const auto& [name, channels] :
         { std::pair ("a.wav", 2), { "a.wav", 1 }, { "a.aiff", 2 }, { "a.flac", 1 }, { "a.flac", 2 }, { "a.ogg", 2 } })
    {
        const auto whole = noise (channels, kLength, 6);
        const auto file = rig.write (name, whole);
        desk::Recording recording;

        for (const juce::int64 bytes : { juce::int64 (0), juce::int64 (1), file.getSize() / 3 })
        {
            DeskRig::resize (file, file.getSize() - bytes);
            ASSERT_EQ (desk::Recording::load (file, recording).getErrorMessage(), "");
            const auto numSamples = recording.audio.getNumSamples();
            EXPECT_EQ (recording.describeLoss().isEmpty(), bytes == 0) << name << recording.describeLoss();

            if (! file.hasFileExtension ("ogg"))
            {
                EXPECT_EQ (numSamples + recording.numMissing, kLength) << name;
                EXPECT_EQ (DeskRig::findFault (recording.audio, whole, 0, numSamples), numSamples) << name;
                EXPECT_GT (numSamples, kLength / 3) << name;
            }
        }
    }

    // A pipe's writer promises all that the format can tell of.
    const auto file = rig.write ("a.wav", noise (2, kLength));
    DeskRig::patch (file, "data", 4, { -1, -1, -1, -1 });
    desk::Recording recording;
    EXPECT_EQ (desk::Recording::load (file, recording).getErrorMessage() + recording.describeLoss(), "");
    EXPECT_EQ (recording.audio.getNumSamples(), kLength);
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
