// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/GlCounter.h"
#include "gui/SurfaceRig.h"

/** Writes down what a control tells: "<" and ">" for a gesture, "=" with the value. */
struct ControlEars : OxJuceControl::Listener
{
    void controlValueChanged (OxJuceControl& control) override
    {
        heard << "=" << control.getValue() << " ";

        if (onValue)
            onValue();
    }
    void controlGestureBegin (OxJuceControl&) override { heard << "< "; }
    void controlGestureEnd (OxJuceControl&) override { heard << "> "; }

    juce::String heard;
    std::function<void()> onValue;
};

/** An editor with controls and a hand on the mouse, the way the toolkit's own window tells of it. */
struct ControlRig : SurfaceRig
{
    using SurfaceRig::SurfaceRig;

    void move (juce::Point<int> place, juce::ModifierKeys buttons = {})
    {
        window.getPeer()->handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse, place.toFloat(), buttons,
                                            juce::MouseInputSource::defaultPressure,
                                            juce::MouseInputSource::defaultOrientation,
                                            juce::Time::currentTimeMillis());
    }

    void click (juce::Point<int> place)
    {
        for (const auto buttons : { 0, int { juce::ModifierKeys::leftButtonModifier }, 0 })
            move (place, buttons);
    }

    /** What a frame allocates in our own code. */
    int allocationsOfAFrame()
    {
        GlCounter::passesOn = false;
        EXPECT_TRUE (frames (2));
        GlCounter::passesOn = true;
        return allocations;
    }

    ControlEars ears;
};
