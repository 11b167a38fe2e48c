// SPDX-License-Identifier: GPL-3.0-or-later
// The built program, by its exit status and what it prints.
#include "DeskRig.h"

#include <gtest/gtest.h>

namespace
{

struct Answer
{
    juce::uint32 status;
    juce::String lastLine;
};

class DeskProgramTest : public testing::Test
{
protected:
    DeskProgramTest()
    {
        rig.write ("a.wav", DeskRig::noise (2, 60000, 1));
        rig.write ("b.wav", DeskRig::noise (1, 65000, 2), 48000);
        rig.write ("none.wav", juce::AudioSampleBuffer (2, 0));
        rig.file ("empty.wav").create();
        rig.file ("noise.wav").replaceWithText (juce::String::repeatedString ("no sound ", 99));
        rig.file ("bad.txt").replaceWithText ("0 select A\n0.1 selekt B\n");
        rig.file ("late.txt").replaceWithText ("0 select A\n\n99 select B\n");
    }

    /** Runs the desk with words parted by spaces, "@name" meaning a file of the rig, without a display. */
    Answer run (const juce::String& words, const juce::String& managerFolder = DUO_MANAGER_FOLDER) const
    {
        juce::StringArray command { "/usr/bin/env", "-u", "DISPLAY", DUO_DESK_FILE, "--manager-folder", managerFolder };

        for (const auto& word : juce::StringArray::fromTokens (words, " ", {}))
            command.add (word.startsWith ("@") ? rig.file (word.substring (1)).getFullPathName() : word);

        juce::ChildProcess child;
        EXPECT_TRUE (child.start (command));
        auto lines = juce::StringArray::fromLines (child.readAllProcessOutput());
        lines.removeEmptyStrings();
        child.waitForProcessToFinish (-1);
        return { child.getExitCode(), lines[lines.size() - 1] };
    }

    DeskRig rig;
};

}   // namespace

TEST_F (DeskProgramTest, EndsWithStatusTwoAndOneLineForEveryError)
{
    struct Error
    {
        const char* words;
        const char* message;
    };
    const Error errors[] {
        { "@a.wav", "a comparison takes two files, not 1" },
        { "@a.wav @b.wav --loud", "there is no option --loud" },
        { "@a.wav @b.wav --render", "--render needs a path" },
        { "@a.wav @b.wav --script @bad.txt", "--script needs --render" },
        { "@a.wav @b.wav", "there is no display" },
        { "@a.wav @gone.wav --render @o.wav", "there is no file " },
        { "@a.wav @empty.wav --render @o.wav", "empty.wav is empty" },
        { "@none.wav @a.wav --render @o.wav", "none.wav holds no audio" },
        { "@noise.wav @a.wav --render @o.wav", "noise.wav is no sound file that can be read" },
        { "/ @a.wav --render @o.wav", "/ cannot be read" },
        { "@a.wav @b.wav --render @no/o.wav", "o.wav cannot be written" },
        { "@a.wav @b.wav --render /", "/ cannot be written" },
        { "@a.wav @b.wav --render @b.wav", "the output would replace " },
        { "@a.wav @b.wav --render @o.wav --script @gone.txt", "gone.txt cannot be read" },
        { "@a.wav @b.wav --render @o.wav --script @bad.txt", "bad.txt, line 2: \"selekt\" is no action" },
        { "@a.wav @b.wav --render @o.wav --script @late.txt", "late.txt, line 3: 99.000 s is not before the end" },
    };

    for (const auto& error : errors)
    {
        const auto answer = run (error.words);
        EXPECT_EQ (answer.status, 2u) << error.words;
        EXPECT_TRUE (answer.lastLine.startsWith ("duojudge-desk: ")) << answer.lastLine;
        EXPECT_TRUE (answer.lastLine.contains (error.message)) << answer.lastLine;
    }

    EXPECT_FALSE (rig.file ("o.wav").exists());
}

TEST_F (DeskProgramTest, SaysWhereItLookedForTheManager)
{
    const auto answer = run ("@a.wav @b.wav --render @o.wav", rig.file ("").getFullPathName());
    EXPECT_EQ (answer.status, 2u);
    EXPECT_TRUE (answer.lastLine.contains ("ORVEX BayLinkLib 64bit.dll\" in " + rig.file ("").getFullPathName()))
        << answer.lastLine;
}

TEST_F (DeskProgramTest, RendersADefaultSequenceWithoutADisplay)
{
    const auto answer = run ("@a.wav @b.wav --render @o.wav");
    EXPECT_EQ (answer.status, 0u);
    EXPECT_TRUE (answer.lastLine.contains ("times faster than real time")) << answer.lastLine;

    desk::Recording rendered;
    ASSERT_TRUE (desk::Recording::load (rig.file ("o.wav"), rendered).wasOk());
    EXPECT_EQ (rendered.describe(), "o.wav, 44.1 kHz, stereo");
    EXPECT_EQ (rendered.audio.getNumSamples(), 60000);
}

TEST_F (DeskProgramTest, ShowsItsUsage)
{
    EXPECT_EQ (run ("--help").status, 0u);
}
