// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Rig.h"

using namespace duoJudge;

TEST (ParameterTableTest, KeepsKeysNamesDefaultsTextsAndProperties)
{
    // Properties: Automatable, Visible to the host, eXcluded from presets, Shown on change, Undoable.
    const auto* const rows =
        R"(0 Routing|Channel Routing|0.100|ITU|X;1 TimecodeFramerate|Timecode Frame Rate|0.006|30 fps|XU;
2 ParamMapVersion|Mapped Param Version|0.001|1|X;3 ToggleAB|Toggle A and B|0.000|Off|AVSU;4 ToggleXY|Toggle X and Y|0.000|Off|AVSU;
5 Test|Blind Test|0.000|Off|AVSU;6 Choose|Choose Audio|0.000|Off|AVSU;7 EndTest|End Test|0.000|Off|AVSU;
8 Reveal|Reveal Statistics|0.000|Off|AVSU;9 Resume|Resume Test|0.000|Off|AVSU;
9000 RoutingDefault|Default Channel Routing|0.100|ITU|AV;9001 RoutingDefault_7_1|Default Channel Routing 7.1|0.100|DTS2|AV;
9002 RoutingDefault_7_1_2|Default Channel Routing 7.1.2|0.100|LR 7.1.2|AV;
9003 TimecodeFramerateDefault|Default Timecode Frame Rate|0.006|30 fps|AV;9005 ExportSupport|Export Support|0.000|Off|AV;
9004 PersistentParamMapVersion|Mapped Persistent Param Version|0.001|1|AV;
9006 UseTimestampedPodAudioOverride|Use timestamped audio|0.000|0.00|AVSU;9100 ShowBaseMenu|Show Menu|0.000|Off|AVS;
9101 Undo|Undo|0.000|Off|AVS;9102 Redo|Redo|0.000|Off|AVS;9103 AB|A/B|0.000|Off|AVS;9104 AtoB|A to B|0.000|Off|AVS;
9105 PresetNext|Next Preset|0.000|0.00|AVS;9106 PresetPrev|Previous Preset|0.000|0.00|AVS;9107 ||0.000||AVS;
9108 ShowProfiling|Profiling|0.000|Off|AVS;9109 ResetToPreset|Reset To Preset|0.000|Off|AVSU;
9110 SendGain|Send Gain|0.500|0.0dB|AVSU;9111 DummyTransient|place-holder dummy param|0.000|0.00|AVSU)";
    auto rig = std::make_unique<Rig>();

    for (const auto& row : juce::StringArray::fromTokens (juce::String (rows).removeCharacters ("\n"), ";", ""))
    {
        const auto param = row.getIntValue();
        const auto key = rig->getParamKey (param);
        auto found = juce::String (param) + " " + key + "|" + rig->getParameterName (param) + "|" +
                     juce::String (rig->parameter (param).defaultValue, 3) + "|" + rig->getParameterText (param) + "|";
        found << (rig->isParameterAutomatable (param) ? "A" : "") << (rig->isParameterHostVisible (param) ? "V" : "")
              << (rig->isParamExcludedFromPresets (param) ? "X" : "") << (rig->isParamShownOnChange (param) ? "S" : "")
              << (rig->isParamUndoable (param) ? "U" : "");
        EXPECT_EQ (found, row);
        EXPECT_EQ (rig->getParamIdForKey (key), param < kTransientIdBase ? param : -1);
    }
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
    int code = 0;

    for (const auto* const rate : { "23.976 fps", "24 fps", "25 fps", "29.97 fps DF", "29.97 fps", "30 fps DF",
                                    "30 fps", "48 fps", "50 fps", "59.94 fps DF", "59.94 fps", "60 fps DF", "60 fps" })
    {
        rig->setFramerateCode (code++);
        EXPECT_EQ (rig->getParameterText (TimecodeFramerateDefault), rate);
    }
}
