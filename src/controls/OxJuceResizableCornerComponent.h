// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxOglChildComponent.h"

/** A grip for the lower right corner of what it resizes; its upper left lets clicks through. A resize lays out a whole
    window, so from one to the next, of whatever grip, 100 ms pass: what the pointer did last may be without effect. */
class OxJuceResizableCornerComponent : public OxOglChildComponent
{
public:
    /** @param componentToResize may go before the grip does; null for none
        @param boundsConstrainer not owned; null for none */
    explicit OxJuceResizableCornerComponent (juce::Component* componentToResize = nullptr,
                                             juce::ComponentBoundsConstrainer* boundsConstrainer = nullptr);

    // OxOglChildComponent
    void draw (int elapsedMs) override;

    // juce::Component
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseDrag (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;
    bool hitTest (int x, int y) override;

private:
    juce::WeakReference<juce::Component> target;
    juce::ComponentBoundsConstrainer* constrainer;
    juce::Rectangle<int> startBounds;   // of the target, at the press of the mouse
};
