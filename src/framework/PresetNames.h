// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** The name of a preset or of a preset folder as it stands on disk [any thread but the audio thread]. Separators, brackets
    and bars are escaped; any other character outside a plain set is lost. Encoding what is encoded changes nothing. */
juce::String encodePresetName (const juce::String& text);

/** The same name as it is shown. Reads an older encoding too, whose escapes begin with a percent sign. */
juce::String decodePresetName (const juce::String& text);
