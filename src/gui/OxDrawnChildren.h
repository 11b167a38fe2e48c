// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include <juce_gui_basics/juce_gui_basics.h>

class OxOglChildComponent;

/** The children of a component that are drawn, back to front: the message thread changes the component's own list, the
    render thread walks this one.

    A change waits for a walk in progress, so a child that its parent has let go of is no longer drawn. Therefore: remove a
    child from its parent before its destructor begins, unless rendering has stopped. */
class OxDrawnChildren
{
public:
    /** Takes the list anew [message thread, from `childrenChanged`]. */
    void update (const juce::Component& parent);

    /** Draws each child with all below it [render thread]. */
    void renderAll (int elapsedMs);

private:
    std::vector<OxOglChildComponent*> children;   // not owned
    juce::CriticalSection lock;
};
