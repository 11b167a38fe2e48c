// SPDX-License-Identifier: GPL-3.0-or-later
// The built program, by its exit status and what it prints.
#include "DeskRig.h"

#include <sys/stat.h>
#include <unistd.h>

struct DeskProgramTest : testing::Test
{
    DeskProgramTest()
    {
        rig.write ("a.wav", noise (2, 44100, 1));
        rig.write ("-b.ogg", noise (1, 49000, 2), 48000);
        rig.write ("none.wav", Audio (2, 0));
        rig.write ("fast.wav", noise (1, 9, 3), 1536001);
        rig.file ("empty.wav").create();
        rig.file ("noise.wav").replaceWithText (juce::String::repeatedString ("no sound ", 99));
        rig.file ("bad.txt").replaceWithText ("0 select A\n0.1 selekt B\n");
        rig.file ("torn/DuoJudge.vst3").create();
        rig.file ("late.txt").replaceWithText ("0 select A\n\n1 select B\n");
        rig.write ("wide.wav", Audio (2000, 9));
        rig.patch (rig.write ("odd.wav", Audio (2, 99)), "fmt ", 22, { 12 });   // bits
        const auto stereo = rig.write ("mixed.ogg", Audio (2, 49000));
        juce::MemoryBlock mono;
        EXPECT_TRUE (rig.file ("-b.ogg").loadFileAsData (mono) && stereo.appendData (mono.getData(), mono.getSize()));
        rig.resize (rig.file ("vast.txt"), 1 << 26);
        rig.file ("linked").createDirectory();
        EXPECT_EQ (::mkfifo (rig.file ("pipe").getFullPathName().toRawUTF8(), 0600), 0);

        for (const auto& [link, target] : { std::pair ("pipe-link", "pipe"),
                                            { "ring", "ring" },
                                            { "a-link", "a.wav" },
                                            { "o-link", "linked/next" },
                                            { "linked/next", "../new.wav" } })
            EXPECT_EQ (::symlink (target, rig.file (link).getFullPathName().toRawUTF8()), 0);
    }

    /** Runs the desk in the rig's folder, where no display answers; with none named the toolkit would try the first.
        @returns its last line behind its status */
    juce::String run (const juce::String& words)
    {
        juce::StringArray command { "env", "-C", rig.file ("").getFullPathName(), "DISPLAY=:60000", DUO_DESK_FILE };
        command.addTokens (words, " ", {});
        juce::ChildProcess child;
        EXPECT_TRUE (child.start (command));
        printed = child.readAllProcessOutput();
        const auto lines = juce::StringArray::fromLines (printed.trim());
        child.waitForProcessToFinish (-1);
        return juce::String (child.getExitCode()) + " " + lines[lines.size() - 1];
    }

    DeskRig rig;
    juce::String printed;   // by the last run
};

TEST_F (DeskProgramTest, EndsWithStatusTwoAndOneLineForEveryError)
{
    const std::pair<const char*, const char*> errors[] {
        { "a.wav", "a comparison takes two files, not 1" },
        { "a.wav a.wav --loud", "there is no option --loud" },
        { "a.wav a.wav --render", "--render needs a path" },
        { "a.wav a.wav --script bad.txt", "--script needs --render" },
        { "a.wav a.wav", "there is no display" },
        { "a.wav gone.wav --render o.wav", "there is no file " },
        { "a.wav empty.wav --render o.wav", "empty.wav is empty" },
        { "none.wav a.wav --render o.wav", "none.wav holds no audio" },
        { "noise.wav a.wav --render o.wav", "noise.wav is no sound file that can be read" },
        { "wide.wav a.wav --render o.wav", "wide.wav is no sound file that can be read" },
        { "odd.wav a.wav --render o.wav", "odd.wav is no sound file that can be read" },
        { "mixed.ogg a.wav --render o.wav", "mixed.ogg is no sound file that can be read" },
        { "a.wav fast.wav --render o.wav", "fast.wav names a sample rate outside 1 to 1536000 Hz" },
        { "/ a.wav --render o.wav", "/ cannot be read" },
        { "a.wav a.wav --render no/o.wav", "o.wav cannot be written" },
        { "a.wav a.wav --render /", "/ cannot be written" },
        { "a.wav a.wav --render pipe", "pipe cannot be written: it is no plain file" },
        { "a.wav a.wav --render pipe-link", "pipe-link cannot be written: it is no plain file" },
        { "a.wav a.wav --render ring", "ring cannot be written" },
        { "none.wav a.wav --render a.wav", "the output would replace " },
        { "none.wav a.wav --render a-link", "the output would replace " },
        { "a.wav a.wav --render late.txt --script late.txt", "the output would replace " },
        { "a.wav a.wav --render o.wav --script gone.txt", "gone.txt cannot be read" },
        { "a.wav a.wav --render o.wav --script bad.txt", "bad.txt, line 2: \"selekt\" is no action" },
        { "a.wav a.wav --render o.wav --script vast.txt", "vast.txt is too long for a script" },
        { "a.wav a.wav --render o.wav --script late.txt", "late.txt, line 3: 1.000 s is not before the end" },
        { "a.wav a.wav --render o.wav --plugins /no", "there is no plug-in /no/DuoJudge.vst3; --plugins names" },
        { "a.wav a.wav --render o.wav --plugins torn", "torn/DuoJudge.vst3 does not load" },
    };

    for (const auto& [words, message] : errors)
    {
        const auto answer = run (words);
        EXPECT_TRUE (answer.startsWith ("2 duojudge-desk: ") && answer.contains (message)) << words << ": " << answer;
    }

    EXPECT_FALSE (rig.file ("o.wav").exists());
    struct stat pipe = {};
    EXPECT_TRUE (::stat (rig.file ("pipe").getFullPathName().toRawUTF8(), &pipe) == 0 && S_ISFIFO (pipe.st_mode));
}

TEST_F (DeskProgramTest, RendersADefaultSequenceWithoutADisplayThroughALinkAndShowsItsUsage)
{
    const auto answer = run ("--render o-link a.wav -- -b.ogg");
    EXPECT_TRUE (answer.startsWith ("0 ") && answer.contains ("times faster than real time")) << answer;
    EXPECT_TRUE (rig.file ("o-link").isSymbolicLink() && rig.file ("linked/next").isSymbolicLink());

    desk::Recording rendered;
    ASSERT_TRUE (desk::Recording::load (rig.file ("new.wav"), rendered).wasOk());
    EXPECT_EQ (rendered.describe(), "new.wav, 44.1 kHz, stereo");
    EXPECT_EQ (rendered.audio.getNumSamples(), 44100);

    EXPECT_EQ (run ("--help"), "0 The exit status is 0, or 2 after an error, which is told in one line.");
    EXPECT_EQ (run ("--version a.wav"), "0 duojudge-desk 1.1.2");
}

TEST_F (DeskProgramTest, SaysHowMuchOfATruncatedFileIsMissing)
{
    const auto cut = rig.write ("cut.wav", noise (2, 44100, 4));
    rig.resize (cut, cut.getSize() - (4410 * 8 + 1));
    EXPECT_TRUE (run ("a.wav cut.wav --render o.wav").startsWith ("0 "));
    EXPECT_TRUE (printed.contains ("duojudge-desk: cut.wav lacks its last 4411 samples (0.100 s)")) << printed;
}
