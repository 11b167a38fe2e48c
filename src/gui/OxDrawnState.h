// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Relaxed.h"

#include <juce_gui_basics/juce_gui_basics.h>

/** Where a component lies, whether it shows and whether it is enabled, for the render thread to read while the message
    thread moves it. A frame may meet a move half done; the next one does not. */
class OxDrawnState : private juce::ComponentListener
{
public:
    /** @param watched must outlive this object */
    explicit OxDrawnState (juce::Component& watched);
    ~OxDrawnState() override;

    /** In the parent [any thread]. */
    juce::Rectangle<int> getBounds() const noexcept { return { x, y, width, height }; }
    bool isVisible() const noexcept { return visible; }

    /** With all its parents [any thread]. */
    bool isEnabled() const noexcept { return enabled; }

    /** Looks anew whether the component is enabled [message thread]: the toolkit tells the component, not its listeners. */
    void updateEnablement();

private:
    void componentMovedOrResized (juce::Component&, bool, bool) override;
    void componentVisibilityChanged (juce::Component&) override;

    juce::Component& component;
    Relaxed<int> x = 0, y = 0, width = 0, height = 0;
    Relaxed<bool> visible = false, enabled = true;
};
