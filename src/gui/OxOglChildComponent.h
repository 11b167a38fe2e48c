// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxDrawnChildren.h"
#include "gui/OxDrawnState.h"
#include "gui/OxOglComponentUser.h"

/** Whatever there is to see in the window: to the toolkit a component, which the render thread has draw itself.

    Coordinates begin at the element's own corner. Its children come after it, the last on top, and nothing cuts them off at
    its edges. */
class OxOglChildComponent : public virtual OxOglComponentUser, public virtual juce::Component
{
public:
    explicit OxOglChildComponent (const juce::String& nameOfComponent = {});
    ~OxOglChildComponent() override;

    /** Draws this element, if it is visible, and all below it [render thread]. A class overrides `draw`, not this. */
    virtual void renderAll (int elapsedMs);

    /** The element's own pixels [render thread]. Allocates nothing. @param elapsedMs since the frame before */
    virtual void draw (int elapsedMs);

    /** For diagnostics. */
    virtual const char* getTypeName() const { return "TYPE NAME NOT SET"; }

    /** Where the element lies in its parent, as `draw` may read it [any thread]. */
    juce::Rectangle<int> getDrawnBounds() const noexcept { return drawnState.getBounds(); }
    juce::Rectangle<int> getDrawnLocalBounds() const noexcept { return getDrawnBounds().withZeroOrigin(); }
    bool isDrawn() const noexcept { return drawnState.isVisible(); }
    bool isDrawnEnabled() const noexcept { return drawnState.isEnabled(); }

    // juce::Component: an override calls these too
    void childrenChanged() override;
    void enablementChanged() override;
    void parentHierarchyChanged() override;

private:
    friend class OxDrawnChildren;

    void leaveParent();

    OxDrawnState drawnState { *this };
    OxDrawnChildren drawnChildren { *this };
    OxDrawnChildren* drawnIn = nullptr;   // the list this stands in [message thread]

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (OxOglChildComponent)
};
