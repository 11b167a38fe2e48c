// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Rig.h"

using namespace duoJudge;

TEST (ParameterTableTest, EveryParameterHasItsKeyAndItsProperties)
{
    auto rig = std::make_unique<Rig>();
    juce::String keys, undone, kept, hidden, silent, fixed, found;
    const auto add = [&] (int first, int count)
    {
        for (int id = first; id < first + count; ++id)
        {
            const auto note = [id] (juce::String& list, bool is) { list << (is ? juce::String (id) + " " : ""); };
            keys << rig->getParamKey (id) << " ";
            note (undone, rig->isParamUndoable (id)), note (kept, rig->isParamExcludedFromPresets (id));
            note (hidden, ! rig->isParameterHostVisible (id)), note (silent, ! rig->isParamShownOnChange (id));
            note (fixed, ! rig->isParameterAutomatable (id)),
                note (found, rig->getParamIdForKey (rig->getParamKey (id)) == id);
        }
    };
    add (0, 10), add (9000, 7), add (9100, 12);
    EXPECT_EQ (keys, "Routing TimecodeFramerate ParamMapVersion ToggleAB ToggleXY Test Choose EndTest Reveal Resume "
                     "RoutingDefault RoutingDefault_7_1 RoutingDefault_7_1_2 TimecodeFramerateDefault "
                     "PersistentParamMapVersion ExportSupport UseTimestampedPodAudioOverride ShowBaseMenu Undo Redo AB "
                     "AtoB PresetNext PresetPrev  ShowProfiling ResetToPreset SendGain DummyTransient ");
    EXPECT_EQ (undone, "1 3 4 5 6 7 8 9 9006 9109 9110 9111 ");
    EXPECT_EQ (kept + hidden + fixed, "0 1 2 0 1 2 0 1 2 ");
    EXPECT_EQ (silent, "0 1 2 9000 9001 9002 9003 9004 9005 ");
    EXPECT_EQ (found, "0 1 2 3 4 5 6 7 8 9 9000 9001 9002 9003 9004 9005 9006 ");
}

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
