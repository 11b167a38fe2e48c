// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Process.h"

namespace platform
{
namespace
{

juce::String& redirectedName()
{
    static juce::String name;
    return name;
}

}   // namespace

juce::String getExecutableFileName()
{
    if (redirectedName().isNotEmpty())
        return redirectedName();

    return juce::File::getSpecialLocation (juce::File::hostApplicationPath).getFileName();
}

juce::String getComputerName()
{
    return juce::SystemStats::getComputerName();
}

ScopedExecutableFileName::ScopedExecutableFileName (const juce::String& name) : previous (redirectedName())
{
    redirectedName() = name;
}

ScopedExecutableFileName::~ScopedExecutableFileName()
{
    redirectedName() = previous;
}

}   // namespace platform
