// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceSelectorControl.h"
#include "controls/OxJuceTextEdit.h"
#include "engine/EngineRig.h"
#include "gui/SurfaceRig.h"

/** The product's window on the desktop, a hand on the mouse, and eyes for what its controls show. A tick of both timers
    follows every action, and no other runs while a test does not let the toolkit's events through. */
struct EditorRig : EngineRig
{
    explicit EditorRig (juce::Point<int> place = { 10, 10 })
    {
        play (level (0.0f), level (0.0f));
        window.setBounds ({ place.x, place.y, 535, 267 });
        window.addToDesktop (juce::ComponentPeer::windowIsTemporary);   // where nothing moves or covers it
        window.setVisible (true);
        open();
    }
    ~EditorRig() { close(); }

    void open()
    {
        editor.reset (dynamic_cast<OxJuceEditorBase*> (processor->createEditor()));
        window.addAndMakeVisible (*editor);
        tick();
    }
    void close() { editor.reset(); }
    void tick() { processor->timerCallback(), editor->timerCallback(); }

    // The mouse -------------------------------------------------------------------------------------------------------

    void move (juce::Point<int> place, int buttons = 0) { moveMouse (window, pointer = place, buttons); }
    void press (juce::Point<int> place) { move (place), move (place, juce::ModifierKeys::leftButtonModifier), tick(); }
    void press (const juce::String& name) { press (centre (name)); }
    void release() { move (pointer), tick(); }
    void click (juce::Point<int> place) { press (place), release(); }
    void click (const juce::String& name) { click (centre (name)); }
    void chooseRow (int row) { click ("m_selPodList"), click (placeOfRow (row)); }

    juce::Point<int> centre (const juce::String& name)
    {
        auto& control = find (name);
        return window.getLocalArea (&control, control.getLocalBounds()).getCentre();
    }
    juce::Point<int> placeOfRow (int row)
    {
        auto& list = find ("m_selPodList.m_Popup");
        const auto numRows = find<OxJuceSelectorControl> ("m_selPodList").getItems().size();
        return list.getBounds().getTopLeft() + juce::Point (9, list.getHeight() * (2 * row + 1) / (2 * numRows));
    }

    // Blind votes -----------------------------------------------------------------------------------------------------

    /** Votes in the test view while A or B plays, and lets the fade end. */
    void vote (bool isB)
    {
        set (duoJudge::ToggleAB, isB ? 1.0f : 0.0f).run (4096);
        click ("m_btnChoose");
        run (8192), tick();
    }

    // What the window shows -------------------------------------------------------------------------------------------

    /** Any component; one that a view has put away throws. */
    template <typename Kind = OxJuceControl>
    Kind& find (const juce::String& name)
    {
        for (auto* const component : everything (*editor))
            if (auto* const found = dynamic_cast<Kind*> (component); found != nullptr && found->getName() == name)
                return *found;

        throw std::runtime_error (name.toStdString() + " is not there");
    }

    juce::String text (const juce::String& name)
    {
        auto* const control = &find (name);
        const auto* const button = dynamic_cast<OxJuceButton*> (control);
        const auto* const field = dynamic_cast<OxJuceTextEdit*> (control);
        return button != nullptr  ? button->getLabel (0)
               : field != nullptr ? field->getText()
                                  : dynamic_cast<OxJuceSelectorControl&> (*control).getSelectedText();
    }

    /** The names, sorted, of the controls on show of which something holds. */
    template <typename Question>
    juce::String controls (Question&& holds)
    {
        juce::StringArray names;

        for (auto* const component : everything (*editor))
            if (auto* const control = dynamic_cast<OxJuceControl*> (component); control != nullptr)
                if (control->isShowing() && control->getName().startsWith ("m_") && holds (*control))
                    names.add (control->getName().fromFirstOccurrenceOf ("_", false, false));

        names.sort (false);
        return names.joinIntoString (" ");
    }
    juce::String shown()
    {
        return controls ([] (const auto&) { return true; });
    }
    /** What brightens, a frame from now. */
    juce::String highlighted()
    {
        struct Overlay : OxJuceControlWithHelpers
        {
            using OxJuceControlWithHelpers::stepFade, OxJuceControlWithHelpers::getFadeLevel;
        };
        return controls (
            [] (auto& control)
            {
                auto* const faded = dynamic_cast<OxJuceControlWithHelpers*> (&control);
                return faded != nullptr && ((faded->*&Overlay::stepFade)(), (faded->*&Overlay::getFadeLevel)() > 0.0f);
            });
    }
    juce::String locked()
    {
        return controls ([] (const auto& control) { return control.isLocked(); });
    }
    juce::String dimmed()
    {
        return controls ([] (const auto& control) { return control.getOpacity() < 1.0f; });
    }

    /** Which of the two lines beside a button or a number are shown: "<", ">", "<>" or none. */
    juce::String lines()
    {
        juce::String sides;

        for (auto* const component : everything (*editor))
            if (component->isShowing() && component->getWidth() == 28 && component->getHeight() == 4)
                sides << (window.getLocalPoint (component, juce::Point<int>()).x < window.getWidth() / 2 ? "<" : ">");

        return sides;
    }

    static std::vector<juce::Component*> everything (juce::Component& parent)
    {
        std::vector<juce::Component*> all;

        for (auto* const child : parent.getChildren())
        {
            all.push_back (child);
            const auto below = everything (*child);
            all.insert (all.end(), below.begin(), below.end());
        }

        return all;
    }

    juce::Component window;
    std::unique_ptr<OxJuceEditorBase> editor;
    juce::Point<int> pointer;
};
