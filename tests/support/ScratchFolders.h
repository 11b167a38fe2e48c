// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <cstdlib>

/** A folder of this process's own for all that lasts on the machine, so that nothing meets the real user's files; loaded
    plug-ins and child processes find it as well. Made before any other thread runs. */
struct ScratchFolders
{
    ScratchFolders()
    {
        for (const auto* const name : { "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME", "XDG_DOCUMENTS_DIR" })
            ::setenv (name, root.getChildFile (name).getFullPathName().toRawUTF8(), 1);   // NOLINT: see above
    }

    ~ScratchFolders() { root.deleteRecursively(); }

    const juce::File root = juce::File::createTempFile ("scratch");
};
