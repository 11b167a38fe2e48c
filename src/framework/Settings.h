// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** What lasts on this machine, apart from any session [any thread but the audio thread].

    The product scope holds the machine-wide parameters and stored defaults under their keys; the maker scope holds what
    all products of the maker share. This build keeps no store yet: every value is missing and no write is kept. */

/** @returns the product's float under `name`, or `defaultValue` if there is none. */
float readSettingFloat (const juce::String& name, double defaultValue);

/** @returns whether the value is kept. */
bool writeSettingFloat (const juce::String& name, float value);

/** @returns the maker's text under `name`, or the empty text. */
juce::String readMakerSetting (const juce::String& name);
