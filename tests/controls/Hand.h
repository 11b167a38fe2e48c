// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ControlRig.h"
#include "gui/Pictures.h"

/** A user's hand on one control, and what a listener hears of it: "<" for the begin of a gesture, ">" for its end, and the
    values. */
struct Hand : OxJuceControl::Listener
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

        return std::exchange (heard, {}).trimEnd();
    }

    void controlValueChanged (OxJuceControl& c) override
    {
        hear (juce::String (c.getValue(), 5).trimCharactersAtEnd ("0").trimCharactersAtEnd ("."));
    }
    void controlGestureBegin (OxJuceControl&) override { hear ("<"); }
    void controlGestureEnd (OxJuceControl&) override { hear (">"); }

    std::function<void (const juce::String&)> react = [] (const juce::String&) {};   // from inside the call

private:
    void play (const juce::StringArray& words)
    {
        using Handler = void (juce::Component::*) (const juce::MouseEvent&);
        static const std::map<juce::String, Handler> handlers {
            { "enter", &juce::Component::mouseEnter }, { "exit", &juce::Component::mouseExit },
            { "press", &juce::Component::mouseDown },  { "drag", &juce::Component::mouseDrag },
            { "release", &juce::Component::mouseUp },  { "doubleclick", &juce::Component::mouseDoubleClick }
        };
        const juce::Point place (words[1].getFloatValue(), words[2].getFloatValue());
        const auto keys = words[3] == "fine"    ? juce::ModifierKeys::shiftModifier
                          : words[3] == "reset" ? juce::ModifierKeys::ctrlModifier
                          : words[3] == "alt"   ? juce::ModifierKeys::altModifier
                                                : 0;
        const juce::MouseEvent event (juce::Desktop::getInstance().getMainMouseSource(), place, keys, 0.0f, 0.0f, 0.0f,
                                      0.0f, 0.0f, &control, &control, {}, place, {}, 1, false);

        if (const auto handler = handlers.find (words[0]); handler != handlers.end())
            (control.*handler->second) (event);
        else if (words[0] == "wheel")
            control.mouseWheelMove (event, { place.x, place.y, false, false, false });
        else
            control.setLocked (words[0] == "lock");
    }

    void hear (const juce::String& what)
    {
        heard << what << " ";
        react (what);
    }

    OxJuceControl& control;
    const juce::WeakReference<juce::Component> alive;
    juce::String heard;
};

/** Both renderers show a control as these patches of colour on black. */
inline void expectPatches (SurfaceRig& rig, juce::Component& control,
                           const std::vector<std::pair<juce::Colour, juce::Rectangle<int>>>& patches)
{
    const auto fill = [&] (juce::Graphics& g)
    {
        for (const auto& [colour, area] : patches)
            g.setColour (colour), g.fillRect (area);
    };
    const auto paint = [&] (juce::Graphics& g) { g.setOrigin (control.getPosition()), control.paint (g); };
    const auto expected = painted (rig.window.getWidth(), rig.window.getHeight(), fill);
    EXPECT_TRUE (looksLike (expected, rig.picture(), 2)) << patches.back().second.toString();
    EXPECT_TRUE (looksLike (expected, painted (expected.getWidth(), expected.getHeight(), paint), 2));
}
