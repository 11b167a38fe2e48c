// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace platform
{

/** The file name, with its extension, of the program that runs: the host's, not that of the shared object [any thread but
    the audio thread]. */
juce::String getExecutableFileName();

/** The name of the machine as the system gives it, or empty [any thread but the audio thread]. */
juce::String getComputerName();

/** While it lives, the running program goes by another name; made and dropped while nobody asks for it. */
class ScopedExecutableFileName
{
public:
    explicit ScopedExecutableFileName (const juce::String& name);
    ~ScopedExecutableFileName();

    ScopedExecutableFileName (const ScopedExecutableFileName&) = delete;
    ScopedExecutableFileName& operator= (const ScopedExecutableFileName&) = delete;

private:
    juce::String previous;
};

}   // namespace platform
