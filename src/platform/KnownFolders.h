// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace platform
{

/** The folder for program files that several products share [any thread but the audio thread].

    On this system there are two, `~/.local/lib` and `/usr/local/lib`: the first in which `fileBelow` stands is meant, and
    the user's own where it stands in neither.
    @param fileBelow a path below the folder, with either separator
    @returns the folder's path without a trailing separator, or empty when the system names no such folder */
juce::String findCommonProgramFilesFolder (const juce::String& fileBelow);

/** Where programs keep what they remember for the user: what XDG_CONFIG_HOME names, or `~/.config` [any thread but the audio
    thread]. */
juce::File getUserConfigurationFolder();

/** The same for all users of the machine: `/etc/xdg`, whatever a desktop session puts beside it in XDG_CONFIG_DIRS. Where
    that names other folders alone, the last of them. */
juce::File getMachineConfigurationFolder();

/** Where programs keep data for the user, apart from what configures them: what XDG_DATA_HOME names, or `~/.local/share`. */
juce::File getUserApplicationDataFolder();

/** Where the user keeps documents: what XDG_DOCUMENTS_DIR names in the environment or else in the file `user-dirs.dirs` of
    the configuration folder, or `~/Documents`. */
juce::File getUserDocumentsFolder();

/** While it lives, shared program files are looked for in `folder` alone, so that a test never meets the user's own. */
class ScopedCommonProgramFilesFolder
{
public:
    explicit ScopedCommonProgramFilesFolder (const juce::File& folder);
    ~ScopedCommonProgramFilesFolder();

    ScopedCommonProgramFilesFolder (const ScopedCommonProgramFilesFolder&) = delete;
    ScopedCommonProgramFilesFolder& operator= (const ScopedCommonProgramFilesFolder&) = delete;

private:
    juce::String previous;
};

}   // namespace platform
