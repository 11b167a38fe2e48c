// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskOptions.h"
#include "Script.h"

#include <gtest/gtest.h>

using namespace desk;

struct ScriptCase
{
    const char* text;
    const char* fault;   // a piece of the message, empty for a sound script
    const char* order;   // what is left of a sound script
};

class ScriptTest : public testing::TestWithParam<ScriptCase>
{
};

TEST_P (ScriptTest, ReadsSoundLinesAndNamesTheFirstBadOne)
{
    Script script;
    const auto read = Script::parse (GetParam().text, script);
    EXPECT_EQ (read.wasOk(), *GetParam().fault == 0) << read.getErrorMessage();
    EXPECT_TRUE (read.getErrorMessage().contains (GetParam().fault)) << read.getErrorMessage();
    EXPECT_EQ (script.toString(), GetParam().order);
}

INSTANTIATE_TEST_SUITE_P (
    Sound, ScriptTest,
    testing::Values (
        ScriptCase { "", "", "" }, ScriptCase { "# only words\n\n \t\r\n", "", "" },
        ScriptCase { "0 select B\r\n.5\tgain\t-10 # quieter\r\n", "", "0.000 select B\n0.500 gain -10.0\n" },
        ScriptCase { "2 select A\n1 select B\n1 gain 3", "", "1.000 select B\n1.000 gain 3.0\n2.000 select A\n" },
        ScriptCase { "1 test\n1 flip Y\n1 choose\n1 reveal\n1 select A\n1 resume\n2 end\n2 test\n2 end", "",
                     "1.000 test\n1.000 flip Y\n1.000 choose\n1.000 reveal\n1.000 select A\n1.000 resume\n"
                     "2.000 end\n2.000 test\n2.000 end\n" }));

INSTANTIATE_TEST_SUITE_P (
    Bad, ScriptTest,
    testing::Values (ScriptCase { "0 select A\n\nselect B", "line 3: a line begins with a time", "" },
                     ScriptCase { "-1 select A", "line 1: a line begins with a time", "" },
                     ScriptCase { "1,5 select A", "line 1: a line begins", "" },
                     ScriptCase { "1s select A", "line 1: a line begins", "" },
                     ScriptCase { "nan select A", "line 1: a line begins", "" },
                     ScriptCase { "5", "line 1: no action follows", "" },
                     ScriptCase { "5 jump", "line 1: \"jump\" is no action", "" },
                     ScriptCase { "5 select C", "line 1: \"select\" takes one argument: A or B", "" },
                     ScriptCase { "5 test\n6 flip", "line 2: \"flip\" takes one argument: X or Y", "" },
                     ScriptCase { "5 test now", "line 1: \"test\" stands alone", "" },
                     ScriptCase { "5 select A B", "line 1: \"select\" takes one", "" },
                     ScriptCase { "5 gain 10.1", "line 1: a gain is a number of decibels", "" },
                     ScriptCase { "5 gain loud", "line 1: a gain is a number of decibels", "" },
                     ScriptCase { "5 choose", "line 1: \"choose\" cannot be done while no test is running", "" },
                     ScriptCase { "1 test\n2 select A", "line 2: \"select A\" cannot be done while a test", "" },
                     ScriptCase { "9 reveal\n3 test\n5 end", "line 1: \"reveal\" cannot be done", "" },
                     ScriptCase { "1 test\n2 reveal\n3 choose", "line 3: \"choose\" cannot be done while the votes",
                                  "" }));

TEST (ScriptTest, TakesNoActionAtOrAfterTheEnd)
{
    Script script;
    ASSERT_TRUE (Script::parse ("1 select B\n\n2 select A", script).wasOk());
    EXPECT_TRUE (script.checkLength (2.001).wasOk());
    EXPECT_EQ (script.checkLength (2.0).getErrorMessage(),
               "line 3: 2.000 s is not before the end, which is at 2.000 s");
}

TEST (ScriptTest, MadeUpScriptsAreSoundAndFitWhateverTheLength)
{
    for (const auto seconds : { 1.0 / 44100.0, 0.05, 1.0, 3.0, 8.0, 600.0 })
    {
        const auto made = Script::makeDefault (seconds);
        Script again;
        EXPECT_EQ (Script::parse (made.toString(), again).getErrorMessage(), juce::String()) << seconds;
        EXPECT_TRUE (made.checkLength (seconds).wasOk()) << seconds;
    }
}

TEST (DeskOptionsTest, TakeOptionsInAnyPlaceAndFilesBehindTwoDashes)
{
    DeskOptions options;
    ASSERT_TRUE (
        DeskOptions::parse ({ "--render", "o.wav", "a.wav", "--script", "s", "--", "-b.wav" }, options).wasOk());
    EXPECT_TRUE (options.renders);
    EXPECT_EQ (options.output.getFileName(), "o.wav");
    EXPECT_EQ (options.script.getFileName(), "s");
    EXPECT_EQ (options.fileA.getFileName(), "a.wav");
    EXPECT_EQ (options.fileB.getFileName(), "-b.wav");
}
