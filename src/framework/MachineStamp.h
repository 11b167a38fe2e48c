// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** Hides the name of a machine in 160 bytes of random small letters, in the text form of `juce::MemoryBlock` [any thread but
    the audio thread].

    Somewhere in them stand the name's length in bytes as two hexadecimal digits, "-" and the name; a name of more than 157
    characters or bytes is cut to as many whole characters as fit. */
juce::String makeMachineStamp (const juce::String& computerName);
