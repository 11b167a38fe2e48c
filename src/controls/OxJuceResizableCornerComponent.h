// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxOglChildComponent.h"

/** The grip in the lower right corner of something that the user can resize: only its own lower right triangle takes the
    mouse. All grips together resize at most ten times a second, so the last movement of a drag may be lost. */
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
