// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** What lasts on this machine, apart from any session [any thread but the audio thread].

    The product scope holds the machine-wide parameters and stored defaults under their keys; the maker scope holds what
    all products of the maker share. A value of the user hides one of the machine. Nothing here throws, and a missing
    value is normal. */

/** Held by reads in the whole process, and by who looks at the buffer that they share. */
extern juce::CriticalSection settingsLock;

/** The path of the product scope. */
juce::String getProductSettingsPath();

/** @param size receives the number of bytes, 0 for none
    @returns the value's bytes in the shared buffer, to be copied out while `settingsLock` is held, or null */
const void* readSettingRaw (const juce::String& subPath, const juce::String& name, int& size);

/** @returns the product's float under `name`, or `defaultValue` if there is none. */
float readSettingFloat (const juce::String& name, double defaultValue);

/** @returns the product's text under `name`, or the empty text. */
juce::String readSettingText (const juce::String& name);

/** @returns the maker's text under `name`, or the empty text. */
juce::String readMakerSetting (const juce::String& name);

/** Write to the product's scope, for the machine as well where that is allowed.
    @returns whether the user's value is kept */
bool writeSettingFloat (const juce::String& name, float value);
bool writeSettingText (const juce::String& name, const juce::String& text);

/** Deletes a value for the user, then for the machine; what is not there needs no deleting.
    @returns 1, or what went wrong: 0 an empty path; -1 opening the user's key, -2 deleting there; -3 and -4 these two at
             the machine's; -5 and -6 an exception */
int deleteSetting (const juce::String& subPath, const juce::String& name);

/** The path of a file or folder among the product's installed files; it begins with the backslash if none are installed. */
juce::String getInstallPath (const juce::String& name);

juce::String getManualPath();
