// SPDX-License-Identifier: GPL-3.0-or-later
// The parameter table of the product: keys, names, defaults, texts and properties.
#include "engine/DuoJudgeProcessor.h"
#include "framework/HostType.h"

using namespace duoJudge;

namespace
{

enum class Text
{
    onOff,
    number,
    decibels,
    framerate,
    mapVersion,
    routing,
    routing71,
    routing712
};

struct Row
{
    int id;
    const char* key;
    const char* name;
    float defaultValue;
    Text text;
};

constexpr Row kRows[] {
    { Routing, "Routing", "Channel Routing", 0.1f, Text::routing },
    { TimecodeFramerate, "TimecodeFramerate", "Timecode Frame Rate", 0.006f, Text::framerate },
    { ParamMapVersion, "ParamMapVersion", "Mapped Param Version", 0.001f, Text::mapVersion },
    { ToggleAB, "ToggleAB", "Toggle A and B", 0.0f, Text::onOff },
    { ToggleXY, "ToggleXY", "Toggle X and Y", 0.0f, Text::onOff },
    { Test, "Test", "Blind Test", 0.0f, Text::onOff },
    { Choose, "Choose", "Choose Audio", 0.0f, Text::onOff },
    { EndTest, "EndTest", "End Test", 0.0f, Text::onOff },
    { Reveal, "Reveal", "Reveal Statistics", 0.0f, Text::onOff },
    { Resume, "Resume", "Resume Test", 0.0f, Text::onOff },
    { RoutingDefault, "RoutingDefault", "Default Channel Routing", 0.1f, Text::routing },
    { RoutingDefault_7_1, "RoutingDefault_7_1", "Default Channel Routing 7.1", 0.1f, Text::routing71 },
    { RoutingDefault_7_1_2, "RoutingDefault_7_1_2", "Default Channel Routing 7.1.2", 0.1f, Text::routing712 },
    { TimecodeFramerateDefault, "TimecodeFramerateDefault", "Default Timecode Frame Rate", 0.006f, Text::framerate },
    { PersistentParamMapVersion, "PersistentParamMapVersion", "Mapped Persistent Param Version", 0.001f,
      Text::mapVersion },
    { ExportSupport, "ExportSupport", "Export Support", 0.0f, Text::onOff },
    { UseTimestampedPodAudioOverride, "UseTimestampedPodAudioOverride", "Use timestamped audio", 0.0f, Text::number },
    { ShowBaseMenu, "ShowBaseMenu", "Show Menu", 0.0f, Text::onOff },
    { Undo, "Undo", "Undo", 0.0f, Text::onOff },
    { Redo, "Redo", "Redo", 0.0f, Text::onOff },
    { AB, "AB", "A/B", 0.0f, Text::onOff },
    { AtoB, "AtoB", "A to B", 0.0f, Text::onOff },
    { PresetNext, "PresetNext", "Next Preset", 0.0f, Text::number },
    { PresetPrev, "PresetPrev", "Previous Preset", 0.0f, Text::number },
    { ShowProfiling, "ShowProfiling", "Profiling", 0.0f, Text::onOff },
    { ResetToPreset, "ResetToPreset", "Reset To Preset", 0.0f, Text::onOff },
    { SendGain, "SendGain", "Send Gain", 0.5f, Text::decibels },
    { DummyTransient, "DummyTransient", "place-holder dummy param", 0.0f, Text::number },
};

constexpr const char* kFramerates[] { "23.976 fps", "24 fps",    "25 fps", "29.97 fps DF", "29.97 fps",
                                      "30 fps DF",  "30 fps",    "48 fps", "50 fps",       "59.94 fps DF",
                                      "59.94 fps",  "60 fps DF", "60 fps" };

const Row* findRow (int id)
{
    const auto* const row = std::find_if (std::begin (kRows), std::end (kRows), [id] (auto& r) { return r.id == id; });
    return row != std::end (kRows) ? row : nullptr;
}

bool isHostSetup (int id)
{
    return id == Routing || id == TimecodeFramerate || id == ParamMapVersion;
}

}   // namespace

void DuoJudgeProcessor::addParameters()
{
    for (const auto& row : kRows)
    {
        if (row.id < kPersistentIdBase)
            addNormalParam (row.key, row.id, row.defaultValue);
        else if (row.id < kTransientIdBase)
            addPersistentParam (row.key, row.id, row.defaultValue);
        else
            addTransientParam (row.key, row.id, row.defaultValue);
    }
}

juce::String DuoJudgeProcessor::getParamKey (int paramId)
{
    const auto* const row = findRow (paramId);
    return row != nullptr ? row->key : juce::String();
}

int DuoJudgeProcessor::getParamIdForKey (const juce::String& key)
{
    for (const auto& row : kRows)
        if (row.id < kTransientIdBase && key == row.key)
            return row.id;

    return -1;
}

const juce::String DuoJudgeProcessor::getParameterName (int paramId)
{
    const auto* const row = findRow (paramId);
    return row != nullptr ? row->name : juce::String();
}

const juce::String DuoJudgeProcessor::getParameterText (int paramId)
{
    return getTextOfValue (paramId, parameter (paramId).value);
}

juce::String DuoJudgeProcessor::getTextOfValue (int paramId, float value)
{
    const auto* const row = findRow (paramId);

    if (row == nullptr)
        return {};

    switch (row->text)
    {
        case Text::onOff:
            return value == 0.0f ? "Off" : "On";
        case Text::number:
            return juce::String (value, 2);
        case Text::decibels:
            // Rounded ahead, and plus nought: just below the middle is no minus nought.
            return juce::String (std::round ((value - 0.5f) * 2.0f * 100.0f) / 10.0f + 0.0f, 1) + "dB";
        case Text::framerate:
            return kFramerates[getFramerateCode()];
        case Text::mapVersion:
            return juce::String (paramId == ParamMapVersion ? getParamMapVersion() : getPersistentParamMapVersion());
        case Text::routing:
            return getRoutingText ({ "Film", "ITU", "DTS" });
        case Text::routing71:
            return getRoutingText ({ "DTS1", "DTS2", "Dolby1", "Dolby2", "SDDS1", "SDDS2", "NM" });
        case Text::routing712:
            return getRoutingText ({ "ProTools 7.1.2", "LR 7.1.2", "ProTools 5.1.4", "LR 5.1.4" });
    }

    return {};
}

juce::String DuoJudgeProcessor::getRoutingText (const juce::StringArray& names)
{
    return names[getRoutingForChannels (-1)];   // empty beyond the list
}

bool DuoJudgeProcessor::isParameterAutomatable (int paramId) const
{
    return ! isHostSetup (paramId) && (paramId != kNoParam || isProTools());
}

bool DuoJudgeProcessor::isParameterHostVisible (int paramId) const
{
    return ! isHostSetup (paramId);
}

bool DuoJudgeProcessor::isParamExcludedFromPresets (int paramId)
{
    return isHostSetup (paramId);
}

bool DuoJudgeProcessor::isParamShownOnChange (int paramId)
{
    return ! isHostSetup (paramId) && (paramId < RoutingDefault || paramId > ExportSupport);
}

bool DuoJudgeProcessor::isParamUndoable (int paramId)
{
    return paramId == TimecodeFramerate || (paramId >= ToggleAB && paramId <= Resume) ||
           paramId == UseTimestampedPodAudioOverride || paramId == ResetToPreset || paramId == SendGain ||
           paramId == DummyTransient;
}
