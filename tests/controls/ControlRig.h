// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceDragControl.h"
#include "gui/GlSwitch.h"
#include "gui/Pictures.h"
#include "gui/SurfaceRig.h"

/** A mouse event as the toolkit would bring it to a component. */
inline juce::MouseEvent mouseAt (juce::Component& component, juce::Point<float> place = {}, int keys = 0)
{
    return juce::MouseEvent (juce::Desktop::getInstance().getMainMouseSource(), place, keys, 0.0f, 0.0f, 0.0f, 0.0f,
                             0.0f, &component, &component, {}, {}, {}, 1, ! place.isOrigin());
}

/** What a control tells: "<" for the begin of a gesture, ">" for its end, and the values. */
struct Ears : OxJuceControl::Listener
{
    void controlValueChanged (OxJuceControl& c) override
    {
        hear (juce::String (c.getValue(), 5).trimCharactersAtEnd ("0").trimCharactersAtEnd ("."));
    }
    void controlGestureBegin (OxJuceControl&) override { hear ("<"); }
    void controlGestureEnd (OxJuceControl&) override { hear (">"); }
    void hear (const juce::String& what) { heard << what << " ", react (what); }
    juce::String take() { return std::exchange (heard, {}).trimEnd(); }

    std::function<void (const juce::String&)> react = [] (const juce::String&) {};   // from inside the call
    juce::String heard;
};

/** A user's hand on one control, and ears for it. */
struct Hand : Ears
{
    explicit Hand (OxJuceControl& touched) : control (touched), alive (&touched) { control.addListener (this); }
    ~Hand() override
    {
        if (alive != nullptr)
            control.removeListener (this);
    }

    /** Does steps like "press 3 4 fine", in the control's own pixels, while the control lives. @returns what was heard. */
    juce::String play (const char* script)
    {
        for (const auto& step : juce::StringArray::fromTokens (script, "|", ""))
            if (alive != nullptr)
                play (juce::StringArray::fromTokens (step.trim(), " ", ""));

        return take();
    }

private:
    void play (const juce::StringArray& words)
    {
        using Handler = void (juce::Component::*) (const juce::MouseEvent&);
        static const std::map<juce::String, Handler> handlers {
            { "enter", &juce::Component::mouseEnter }, { "exit", &juce::Component::mouseExit },
            { "press", &juce::Component::mouseDown },  { "drag", &juce::Component::mouseDrag },
            { "release", &juce::Component::mouseUp },  { "doubleclick", &juce::Component::mouseDoubleClick }
        };
        static const std::map<juce::String, int> keys { { "fine", juce::ModifierKeys::shiftModifier },
                                                        { "reset", juce::ModifierKeys::ctrlModifier },
                                                        { "alt", juce::ModifierKeys::altModifier },
                                                        { "", 0 } };
        const juce::Point place (words[1].getFloatValue(), words[2].getFloatValue());
        const auto event = mouseAt (control, place, keys.at (words[3]));

        if (const auto handler = handlers.find (words[0]); handler != handlers.end())
            (control.*handler->second) (event);
        else if (words[0] == "wheel")
            control.mouseWheelMove (event, { place.x, place.y, false, false, false });
        else if (auto* const box = dynamic_cast<OxJuceDragControl*> (&control); words[0] == "type" && box != nullptr)
            box->textEditFinished (words[1]);
        else
            control.setLocked (words[0] == "lock");
    }

    OxJuceControl& control;
    const juce::WeakReference<juce::Component> alive;
};

/** An editor with controls, a hand on the mouse, the way the toolkit's own window tells of it, and a host that, once it
    listens, takes every click for itself. */
struct ControlRig : SurfaceRig, EditorMouseListener
{
    using SurfaceRig::SurfaceRig;
    ~ControlRig() override { editor.reset(); }

    void move (juce::Point<int> place, juce::ModifierKeys buttons = {}) { moveMouse (window, place, buttons); }
    void click (juce::Point<int> place)
    {
        for (const auto buttons : { 0, int { juce::ModifierKeys::leftButtonModifier }, 0 })
            move (place, buttons);
    }

    /** What a frame allocates in our own code. */
    int allocationsOfAFrame()
    {
        drawsNowhere = true;
        EXPECT_TRUE (frames (2));
        const int counted = allocations;
        drawsNowhere = false;
        EXPECT_TRUE (frames (1));
        return counted;
    }

    void frameBegins() override { GlSwitch::passesOn = ! drawsNowhere; }
    void frameEnds() override { GlSwitch::passesOn = true; }
    bool hostMouseDown (const juce::MouseEvent&, int) override { return true; }
    bool hostMouseDrag (const juce::MouseEvent&, int) override { return true; }
    bool hostMouseUp (const juce::MouseEvent&, int) override { return true; }

    Relaxed<bool> drawsNowhere = false;   // no OpenGL
    Ears ears;
};
