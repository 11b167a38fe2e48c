// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Carries new bounds to a component from the render thread; delivered on the message thread. A component that has gone by
    then gets nothing. */
class ResizeMessage : public juce::Message
{
public:
    ResizeMessage (const juce::Component::SafePointer<juce::Component>& target, juce::Rectangle<int> bounds) :
        component (target), x (bounds.getX()), y (bounds.getY()), width (bounds.getWidth()), height (bounds.getHeight())
    {
    }

    void messageCallback() override
    {
        if (auto* const target = component.getComponent())
            target->setBounds (x, y, width, height);
    }

private:
    const juce::Component::SafePointer<juce::Component> component;
    const int x, y, width, height;
};
