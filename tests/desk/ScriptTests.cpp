// SPDX-License-Identifier: GPL-3.0-or-later
#include "Script.h"

#include <gtest/gtest.h>

using desk::Script;

TEST (ScriptTest, ReadsSoundLinesInTheOrderOfTimeOrNamesTheFirstBadOne)
{
    const std::tuple<const char*, const char*, const char*> cases[] {
        { "# only words\n\n \t\r\n", "", "" },
        { "0 select B\r\n.5\tgain\t-10 # quieter\r\n", "0.000 select B\n0.500 gain -10.0\n", "" },
        { "2 select A\n1 select B\n1 gain 3", "1.000 select B\n1.000 gain 3.0\n2.000 select A\n", "" },
        { "1 test\n1 flip Y\n1 choose\n1 reveal\n1 select A\n1 resume\n2 end\n2 test",
          "1.000 test\n1.000 flip Y\n1.000 choose\n1.000 reveal\n1.000 select A\n1.000 resume\n2.000 end\n2.000 test\n",
          "" },
        { "0 select A\n\nselect B", "", "line 3: a line begins with a time" },
        { "-1 select A", "", "line 1: a line begins with a time" },
        { "nan select A", "", "line 1: a line begins with a time" },
        { "5", "", "line 1: no action follows" },
        { "5 jump", "", "line 1: \"jump\" is no action" },
        { "5 select C", "", "line 1: \"select\" takes one argument: A or B" },
        { "5 test\n6 flip", "", "line 2: \"flip\" takes one argument: X or Y" },
        { "5 test now", "", "line 1: \"test\" stands alone" },
        { "5 gain 10.1", "", "line 1: a gain is a number of decibels" },
        { "5 choose", "", "line 1: \"choose\" cannot be done while no test is running" },
        { "1 test\n2 select A", "", "line 2: \"select A\" cannot be done while a test" },
        { "9 reveal\n3 test\n5 end", "", "line 1: \"reveal\" cannot be done" },
        { "1 test\n2 reveal\n3 choose", "", "line 3: \"choose\" cannot be done while the votes" },
    };

    for (const auto& [text, order, fault] : cases)
    {
        Script script;
        const auto message = Script::parse (text, script).getErrorMessage();
        EXPECT_TRUE (message.startsWith (fault) && message.isEmpty() == (*fault == 0)) << text << ": " << message;
        EXPECT_EQ (script.toString(), order);
    }
}
