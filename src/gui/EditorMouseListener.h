// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Is asked, before a control acts, whether the host takes a mouse event on a parameter for itself [message thread]. */
class EditorMouseListener
{
public:
    virtual ~EditorMouseListener() = default;

    virtual bool hostMouseDown (const juce::MouseEvent& event, int paramId) = 0;
    virtual bool hostMouseDrag (const juce::MouseEvent& event, int paramId) = 0;
    virtual bool hostMouseUp (const juce::MouseEvent& event, int paramId) = 0;
};
