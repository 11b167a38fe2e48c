// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include <juce_gui_basics/juce_gui_basics.h>

class OxOglChildComponent;
class OxOglComponentUser;

/** The children of a component that are drawn, back to front: the message thread changes the component's own list, the
    render thread walks this one.

    It changes only while no frame is being drawn, so a child that has left its parent is no longer drawn. Therefore:
    take a child from its parent before its destructor begins, unless rendering has stopped. */
class OxDrawnChildren
{
public:
    /** @param parentOfAll whose children these are; must outlive this object */
    explicit OxDrawnChildren (OxOglComponentUser& parentOfAll) : owner (parentOfAll) {}
    ~OxDrawnChildren();

    /** Takes the list anew [message thread, from `childrenChanged`]. */
    void update (const juce::Component& parent);

    /** Lets go of a child that has left [message thread]. The toolkit tells a parent of those alone that were showing. */
    void remove (OxOglChildComponent& child);

    /** Takes the surface, which dies, from each child and all below it [message thread]. */
    void leaveSurface();

    /** Draws each child with all below it [render thread]. */
    void renderAll (int elapsedMs);

    OxDrawnChildren (const OxDrawnChildren&) = delete;
    OxDrawnChildren& operator= (const OxDrawnChildren&) = delete;

private:
    OxOglComponentUser& owner;
    std::vector<OxOglChildComponent*> children;   // not owned; each knows this list
};
