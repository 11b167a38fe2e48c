// SPDX-License-Identifier: GPL-3.0-or-later
#include "ControlRig.h"
#include "controls/OxJuceResizableCornerComponent.h"
#include "controls/OxJuceSelectorControl.h"
#include "controls/OxJuceSlider.h"
#include "controls/OxJuceTextEdit.h"

namespace
{

/** Controls of every kind for one parameter, in a window that a user and its host drive. */
struct JourneyRig : ControlRig
{
    struct Window : Editor
    {
        explicit Window (SurfaceRig& owner) : Editor (owner)
        {
            button.momentary = true;
            text.format = OxJuceTextEdit::Format::number;
            box.typeInDisabled = false;
            box.setConvertStringToParam ([] (const juce::String& typed) { return typed.getFloatValue(); });
            list.setItems ({ "none", "Drums", "Bass" });

            for (auto* const control : std::initializer_list<OxJuceControl*> { &button, &slider, &box, &list, &text })
                control->attach (duoJudge::ToggleAB, this), addControl (*control);

            button.setBounds (10, 10, 40, 20);
            slider.setTrackBounds (70, 10, 100, 10, true);
            box.setBounds (10, 40, 60, 20);
            list.setBounds (80, 40, 100, 15);
            text.setBounds (10, 70, 60, 16);
        }
        ~Window() override { stopRendering(); }

        void controlValueChanged (OxJuceControl& control) override
        {
            Editor::controlValueChanged (control);

            if (control.getValue() == goesWith)   // another view takes the place of this one
                surface.removeChildComponent (&control);
        }

        OxJuceButton button { "button" };
        OxJuceSlider slider { "slider" };
        OxJuceDragControl box { "box" };
        OxJuceSelectorControl list { "list" };
        OxJuceTextEdit text { "text" };
        float goesWith = -1.0f;
    };

    JourneyRig() : ControlRig (200, 120, false) { open<Window>(), editor->updateGui(), told.clear(); }
    ~JourneyRig() override { editor.reset(); }

    /** Goes through steps like "press 3 4", in the window's pixels. @returns what the host was told. */
    juce::String play (const char* script)
    {
        for (const auto& step : juce::StringArray::fromTokens (script, "|", ""))
            play (juce::StringArray::fromTokens (step.trim(), " ", ""));

        return told.trimEnd();
    }

private:
    void play (const juce::StringArray& words)
    {
        const juce::Point place (words[1].getIntValue(), words[2].getIntValue());
        auto& own = dynamic_cast<Window&> (*editor);
        const std::map<juce::String, std::function<void()>> steps {
            { "press", [&] { move (place), move (place, juce::ModifierKeys::leftButtonModifier); } },
            { "drag", [&] { move (place, juce::ModifierKeys::leftButtonModifier); } },
            { "release", [&] { move (place); } },
            { "click", [&] { click (place); } },
            { "type", [&] { type (words[1]); } },
            { "Return", [&] { end (juce::KeyPress::returnKey); } },
            { "Escape", [&] { end (juce::KeyPress::escapeKey); } },
            { "goes", [&] { own.goesWith = words[1].getFloatValue(); } },
            { "lock", [&] { own.list.setLocked (true); } },
            { "hide", [&] { editor->setVisible (false); } },
            { "disable", [&] { editor->setEnabled (false); } },
            { "shared", [&] { editor->addHostMouseListener (*this); } },   // with a host that takes releases
            { "close", [&] { editor.reset(); } }
        };
        steps.at (words[0])();
    }

    void type (const juce::String& text)
    {
        ASSERT_TRUE (pumpUntil ([] { return modal() != nullptr && modal()->hasKeyboardFocus (false); }));
        dynamic_cast<juce::TextEditor&> (*modal()).selectAll();

        for (auto letter = text.getCharPointer(); ! letter.isEmpty();)
            modal()->getPeer()->handleKeyPress (0, letter.getAndAdvance());

        pumpFor (510);   // before which nothing ends the edit
    }

    void end (int key)
    {
        modal()->getPeer()->handleKeyPress (key, 0);
        EXPECT_TRUE (pumpUntil ([] { return modal() == nullptr; }));
    }

    static juce::Component* modal() { return juce::Component::getCurrentlyModalComponent(); }
    bool hostMouseDown (const juce::MouseEvent&, int) override { return false; }
    bool hostMouseDrag (const juce::MouseEvent&, int) override { return false; }
};

TEST (JourneyTest, EveryWayThroughAControlIsOneWholeEdit)
{
    for (const auto& [script, told] : {
             std::pair ("shared | click 20 20", "3< 3=1 3=0 3>"),
             { "goes 0 | click 20 20", "3< 3=1 3=0 3>" },
             { "goes 1 | press 20 20", "3< 3=1 3=0 3>" },
             { "press 20 20 | close", "3< 3=1 3=0 3>" },
             { "press 20 20 | disable | release | click 20 20", "3< 3=1 3=0 3>" },
             { "shared | press 95 15 | drag 120 15 | release", "3< 3=0.25 3=0.5 3>" },
             { "press 95 15 | disable | drag 120 15 | release | press 120 15", "3< 3=0.25 3>" },
             { "press 95 15 | hide | drag 120 15 | release", "3< 3=0.25 3>" },
             { "press 95 15 | drag 120 15 | close", "3< 3=0.25 3=0.5 3>" },
             { "shared | press 20 50 | drag 70 50 | release", "3< 3=0.25 3>" },
             { "press 20 50 | drag 70 50 | close", "3< 3=0.25 3>" },
             { "disable | press 20 50 | drag 70 50 | release | click 20 50", "" },
             { "click 20 50 | click 20 50 | type 0.75 | Return", "3< 3> 3< 3> 3< 3=0.75 3>" },
             { "click 20 50 | click 20 50 | type 0.75 | Escape", "3< 3> 3< 3> 3< 3>" },
             { "click 20 50 | click 20 50 | type 0.75 | click 190 110", "3< 3> 3< 3> 3< 3=0.75 3>" },
             { "click 20 50 | click 20 50 | type 0.75 | hide", "3< 3> 3< 3> 3< 3=0.75 3>" },
             { "click 20 50 | click 20 50 | type 0.75 | close", "3< 3> 3< 3> 3< 3=0.75 3>" },
             { "click 90 45 | click 90 75", "3< 3=0.001 3>" },
             { "click 90 45 | click 190 110", "3< 3>" },
             { "click 90 45 | hide", "3< 3>" },
             { "click 90 45 | lock | click 90 75 | click 90 45", "3< 3>" },
             { "click 90 45 | disable | click 90 75", "3< 3>" },
             { "click 90 45 | close", "3< 3>" },
             { "click 20 75 | type 0.75 | Return", "3< 3=0.75 3>" },
             { "click 20 75 | type 0.75 | Escape", "" },
             { "click 20 75 | type 0.75 | close", "3< 3=0.75 3>" },
         })
    {
        JourneyRig rig;
        EXPECT_EQ (rig.play (script), told) << script;
        EXPECT_EQ (juce::Component::getCurrentlyModalComponent(), nullptr) << script;
    }
}

TEST (JourneyTest, AGripResizesByItsLowerTriangle)
{
    const juce::ModifierKeys held { juce::ModifierKeys::leftButtonModifier };
    ControlRig rig (200, 120);
    juce::Component target;
    OxJuceResizableCornerComponent grip (&target);
    rig.add (grip), grip.setBounds (100, 40, 40, 40), target.setSize (50, 30);

    for (const auto& [from, size] :
         { std::pair (juce::Point (105, 45), juce::Point (50, 30)), { { 135, 70 }, { 70, 35 } } })
    {
        rig.move (from), rig.move (from, held), rig.move (from + juce::Point (20, 5), held), rig.move (from);
        EXPECT_EQ (juce::Point (target.getWidth(), target.getHeight()), size);
    }

    rig.editor.reset();
}

}   // namespace
