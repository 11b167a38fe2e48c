// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace desk
{

/** What the command line asks for. */
struct DeskOptions
{
    juce::File fileA, fileB;
    juce::File output;    // with `renders`
    juce::File script;    // none: the default sequence
    juce::File plugins;   // none: the user's own
    bool renders = false;
    bool showsHelp = false, showsVersion = false;

    /** Reads the words behind the program's name. @returns what is wrong with them, or success */
    static juce::Result parse (const juce::StringArray& arguments, DeskOptions& result);

    static juce::String getUsage();
    static juce::String getVersion();
};

}   // namespace desk
