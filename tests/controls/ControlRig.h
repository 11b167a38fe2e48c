// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceControl.h"
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

/** Moves the pointer to a place of a window and presses or releases, the way the toolkit's own window tells it. */
inline void point (juce::Component& window, juce::Point<int> place, bool pressed)
{
    window.getPeer()->handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse, place.toFloat(),
                                        pressed ? juce::ModifierKeys::leftButtonModifier : juce::ModifierKeys(),
                                        juce::MouseInputSource::defaultPressure,
                                        juce::MouseInputSource::defaultOrientation, juce::Time::currentTimeMillis());
}

inline void click (juce::Component& window, juce::Point<int> place)
{
    point (window, place, false);
    point (window, place, true);
    point (window, place, false);
}

/** An editor with controls, which can draw without any OpenGL. */
struct ControlRig : SurfaceRig
{
    using SurfaceRig::SurfaceRig;

    void frameBegins() override { GlCounter::passesOn = ! drawsNowhere; }
    void frameEnds() override { GlCounter::passesOn = true; }

    /** What a frame allocates beyond the driver's own. */
    int allocationsOfAFrame()
    {
        drawsNowhere = true;
        EXPECT_TRUE (frames (2));
        const int counted = allocations;
        drawsNowhere = false;
        EXPECT_TRUE (frames (2));
        return counted;
    }

    Relaxed<bool> drawsNowhere = false;
};
