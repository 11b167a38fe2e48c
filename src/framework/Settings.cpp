// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Settings.h"

float readSettingFloat (const juce::String&, double defaultValue)
{
    return static_cast<float> (defaultValue);
}

bool writeSettingFloat (const juce::String&, float)
{
    return false;
}

juce::String readMakerSetting (const juce::String&)
{
    return {};
}
