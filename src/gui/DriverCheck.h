// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** Whether the graphics driver can draw what the window is made of. */
namespace driverCheck
{

/** @param version    what the driver calls itself, like "4.5 (Compatibility Profile) Mesa 22.3.6"; null fails
    @param extensions the names of what it can do beside, blanks between them */
bool isGoodEnough (const char* version, const char* extensions);

/** Looks at the driver of the current context, once in the life of the process, and warns of one that is not good enough
    [render thread, which does not wait for the answer]. */
void runOnce();

}   // namespace driverCheck
