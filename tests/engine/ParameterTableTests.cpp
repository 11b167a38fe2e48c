// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Rig.h"

using namespace duoJudge;

TEST (ParameterTableTest, TellsValuesAsText)
{
    auto rig = std::make_unique<Rig>();

    const std::tuple<int, float, const char*> rows[] {
        { SendGain, 0.0f, "-10.0dB" }, { SendGain, 1.0f, "10.0dB" }, { SendGain, 0.567f, "1.3dB" },
        { Reveal, 0.001f, "On" },      { Reveal, NAN, "On" },        { DummyTransient, 0.126f, "0.13" }
    };

    for (const auto& [param, value, text] : rows)
    {
        rig->setParamDirect (param, value, false);
        EXPECT_EQ (rig->getParameterText (param), text);
    }
    EXPECT_EQ (rig->getParamIdForKey ("SendGain"), -1) << "what is never saved is never found in a file";
    int code = 0;

    for (const auto* const rate : { "23.976 fps", "24 fps", "25 fps", "29.97 fps DF", "29.97 fps", "30 fps DF",
                                    "30 fps", "48 fps", "50 fps", "59.94 fps DF", "59.94 fps", "60 fps DF", "60 fps" })
    {
        rig->setFramerateCode (code++);
        EXPECT_EQ (rig->getParameterText (TimecodeFramerateDefault), rate);
    }
}
