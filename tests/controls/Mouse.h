// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A mouse event as the toolkit would bring it to a component. */
inline juce::MouseEvent mouseAt (juce::Component& component, juce::Point<float> position = {},
                                 juce::Point<float> pressedAt = {})
{
    return juce::MouseEvent (juce::Desktop::getInstance().getMainMouseSource(), position,
                             juce::ModifierKeys::leftButtonModifier, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, &component,
                             &component, {}, pressedAt, {}, 1, position != pressedAt);
}
