// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ControlRig.h"
#include "controls/OxJuceDragControl.h"
#include "controls/OxJuceLines.h"
#include "controls/OxJuceScalableButton.h"
#include "controls/OxJuceSelectorControl.h"
#include "controls/OxJuceSlider.h"
#include "controls/OxJuceTextEdit.h"
#include "gui/DriverCheck.h"
#include "gui/OxJuceOglGridComponent.h"
#include "metering/OxJuceMultiGradient.h"
#include "platform/Process.h"

using duoJudge::ToggleAB, duoJudge::ShowProfiling, duoJudge::ShowBaseMenu;

struct EditorBaseTest : testing::Test, ControlRig
{
    struct Product : Editor   // writes down what the base tells it
    {
        using Editor::Editor;
        ~Product() override { stopRendering(); }
        void drawOverlays() override { OxJuceEditorBase::drawOverlays(), Editor::drawOverlays(); }
        void showParameterText (const juce::String& text) override { rig.heard << text; }
        void updateProductGui() override { rig.heard << (rig.parameter (ToggleAB).changed ? "new " : "old "); }
    };
    EditorBaseTest() : ControlRig (400, 100, false) { open<Product> (false), editor->updateGui(), told.clear(); }

    OxJuceSlider knob { "Knob" }, other { "Other" };
};

TEST_F (EditorBaseTest, MovesValuesAndGesturesBetweenControlsAndParameters)
{
    const auto attach = [&] (int first, int second)
    { knob.attach (first, editor.get()), other.attach (second, editor.get()); };
    const auto update = [&] (float knobs, float others)
    {
        setParamDirect (ToggleAB, 0.125f, false), editor->updateGui();
        EXPECT_EQ (std::pair (knobs, others), std::pair (knob.getValue(), other.getValue()));
    };
    knob.inverted = true;
    attach (ToggleAB, ToggleAB);
    knob.beginChange(), knob.setValue (0.25f, true);
    EXPECT_TRUE (parameter (ToggleAB).editedByGui);
    knob.endChange(), other.setValue (0.75f, true);
    EXPECT_FALSE (parameter (ToggleAB).editedByGui) << "by the value that stands";
    EXPECT_EQ (told + getCurrentTransactionName(), "3< 3=0.75 3> Knob");
    update (0.875f, 0.125f);
    attach (kNoParam, ShowBaseMenu), other.beginChange(), other.endChange(), knob.setValue (0.5f, true);
    other.attach (ToggleAB, nullptr), other.setValue (0.25f, true);
    update (0.5f, 0.25f);
    EXPECT_EQ (told, "3< 3=0.75 3> ");
}

TEST_F (EditorBaseTest, LetsAListenerTakeAnyFromTheWalk)
{
    for (const juce::String leaving : { "", "2", "01", "12" })
    {
        OxJuceControl control ("Control");
        Ears first[3];
        first[2].react = [&] (auto&)
        {
            for (const auto leaver : leaving)
                control.removeListener (&first[leaver - '0']);
        };

        for (auto& listener : first)
            control.addListener (&listener), control.addListener (&listener);

        control.setValue (1.0f, true);
        EXPECT_EQ (first[0].heard, leaving.contains ("0") ? "" : "1 ");
        EXPECT_EQ (first[1].heard, leaving.contains ("1") ? "" : "1 ");
    }
}

TEST_F (EditorBaseTest, TakesTheKeysOfTheHostAndEndsInMidLock)
{
    const platform::ScopedExecutableFileName redirect ("Pro Tools.exe");
    auto drag = std::make_unique<OxJuceDragControl> ("Drag");
    Hand hand (*drag);
    const auto* const script = "press 0 0 alt | drag 40 0 | release | press 0 0 reset | drag 40 0 reset | release";
    EXPECT_EQ (hand.play (script), "< 0.2 > < 0 >");
    drag->attach (kNoParam, editor.get()), drag->setValue (0.5f, false);
    EXPECT_EQ (hand.play (script), "< 0 0.2 > < 0.22 >");
    hand.react = [&] (auto& what) { what == ">" ? drag.reset() : void(); };
    EXPECT_EQ (hand.play ("press 0 0 | lock"), "< >");
}

TEST_F (EditorBaseTest, FadesOnceByStepsOfTheProductAndThenByTheUsualOnes)
{
    struct Button : OxJuceButton
    {
        using OxJuceButton::getFadeLevel, OxJuceButton::OxJuceButton, OxJuceButton::stepFade;
    } button ("Button");
    std::string levels;
    button.startOneShotFade (0.08f, 0.08f);

    for (int frame = 0; frame < 38; ++frame)
    {
        frame == 28 ? (void) Hand (button).play ("enter") : void();
        button.stepFade();
        levels += ".01"[button.getFadeLevel() == 0.0f ? 1 : button.getFadeLevel() == 1.0f ? 2 : 0];
    }
    EXPECT_EQ (levels, "............1............000.........1");
}

TEST_F (EditorBaseTest, CoversWhatWasThereWhenThePluginWasDisabled)
{
    OxJuceButton below ("below"), above ("above");
    const auto clicks = [&] (bool disabled)
    {
        pluginDisabled = disabled;
        editor->timerCallback(), click ({ 20, 20 }), click ({ 60, 20 });
        return juce::String (below.getValue()) + juce::String (above.getValue());
    };
    editor->addControl (below), below.setBounds (10, 10, 30, 30);
    EXPECT_EQ (clicks (true), "00");
    editor->addControl (above), above.setBounds (50, 10, 30, 30);

    for (const auto& [disabled, values] : { std::pair (true, "01"), { false, "10" }, { true, "10" } })
        EXPECT_EQ (clicks (disabled), values);
}

TEST_F (EditorBaseTest, ShowsAChangeOnceAndTheTextThatGoesWithIt)
{
    for (const auto& [changed, text] : std::map<int, const char*> { { duoJudge::Routing, "new " },
                                                                    { ToggleAB, "old Toggle A and B: On" },
                                                                    { duoJudge::Undo, "old Undo" },
                                                                    { kNoParam, "old " } })
    {
        setParamDirect (ToggleAB, 1.0f, false), heard.clear();
        guiUpdatePending = true, pendingParameterTextId = changed;
        {
            const OxScopedReadWriteLock building (editor->editorLock, OxScopedReadWriteLock::Mode::write, true, "");
            editor->timerCallback();
        }
        EXPECT_EQ (heard, "");
        editor->timerCallback(), editor->timerCallback();
        EXPECT_EQ (heard, text);
    }
}

TEST_F (EditorBaseTest, ShowsTheProfilerWhileItsParameterIsNotZero)
{
    const auto red = juce::Colours::red;
    Sketch paper ({}, [red] (Sketch& s) { s.colour() = red, s.drawFilledRect ({ 400, 100 }); });
    add (paper), editor->surface.enableRendering(), knob.attach (ShowProfiling, editor.get());
    const int bottom = 20 + 12 * static_cast<int> (profilerItems.size());

    for (const auto value : { 0.001f, 0.0f })
    {
        setParamDirect (ShowBaseMenu, 1.0f, false), knob.setValue (value, true);
        EXPECT_EQ (parameter (ShowBaseMenu).value, 0.0f);
        EXPECT_TRUE (pumpUntil ([&, wanted = numTicks + 2] { return numTicks >= wanted; }));
        const auto shown = picture();
        const auto line = shown.getClippedImage ({ 10, bottom - 22, 10, 12 });
        const auto clear = shown.getClippedImage ({ 310, bottom - 22, 10, 12 });
        const auto on = value > 0.0f, inked = difference (line, clear).largest > 0;
        EXPECT_EQ (shown.getPixelAt (319, bottom - 1), on ? juce::Colour (105, 0, 0) : red);
        EXPECT_TRUE (shown.getPixelAt (320, bottom - 1) == red && shown.getPixelAt (319, bottom) == red);
        EXPECT_TRUE (inked == on && profilerItems.back().enabled == on && profilerItems.front().enabled == on);
    }
}

TEST_F (EditorBaseTest, ShowsItsDevelopersWhatTheySwitchOn)
{
    OxJuceOglGridComponent grid { "Grid" };
    editor->addControl (grid), editor->surface.enableRendering();
    const auto isInked = [&] (int x)
    {
        EXPECT_TRUE (pumpUntil ([&, wanted = numTicks + 2] { return numTicks >= wanted; }));
        const auto shown = picture();
        return difference (shown.getClippedImage ({ x, 10, 60, 8 }), shown.getClippedImage ({ x, 84, 60, 8 })).largest >
               0;
    };

    for (auto& [view, x] : { std::pair (&EditorOverlays::showsHostFigures, 10),
                             { &EditorOverlays::showsTree, 190 },
                             { &EditorOverlays::showsUnderMouse, 10 } })
    {
        EXPECT_FALSE (isInked (x));
        *view = true;
        EXPECT_TRUE (isInked (x));
        *view = false;
    }
    editor = nullptr;
}

TEST_F (EditorBaseTest, AsksTheDriverForVersionTwoOrTexturesOfAnySize)
{
    using driverCheck::isGoodEnough;
    EXPECT_TRUE (isGoodEnough ("2.0", "") && isGoodEnough ("10.1 Mesa", nullptr));
    EXPECT_TRUE (isGoodEnough ("1.4 (2.1)", "GL_EXT_abgr GL_ARB_texture_non_power_of_two"));
    EXPECT_FALSE (isGoodEnough ("1.4 (2.1)", "GL_EXT_abgr") || isGoodEnough (nullptr, nullptr));
}

TEST_F (EditorBaseTest, LetsEverythingChangeWhileFramesAreDrawn)
{
    OxJuceOglGridComponent grid;
    OxJuceScalableButton button { "button", "ButtonMid", 0 };
    OxJuceDragControl drag { "drag" };
    OxJuceTextEdit text { "text" };
    OxJuceSelectorControl selector { "selector" };
    OxJuceLines lines;
    OxJuceMultiGradient gradient;
    grid.setNumRows (1), grid.setNumColumns (3), editor->addControl (grid), editor->surface.enableRendering();

    for (int turn = 0; turn < 200; ++turn)
    {
        const auto share = static_cast<float> (turn % 10) / 10.0f;
        const auto colour = juce::Colour::fromHSV (share, 1.0f, 1.0f, 1.0f);
        const juce::String word (turn * 7919);

        for (auto* const control :
             std::initializer_list<OxJuceControlWithHelpers*> { &button, &knob, &drag, &text, &selector })
        {
            editor->addControl (*control), control->setBounds (turn % 50, turn % 7, 60 + turn % 5, 20);
            control->setImage (juce::Image (juce::Image::ARGB, 8 + turn % 3, 8, true), turn % 4);
            control->setFillColour (colour), control->setTextColour (colour), control->setValue (share, false);
            control->setVisible (turn % 3 != 0), control->setEnabled (turn % 5 != 0),
                control->setLocked (turn % 4 == 0);
            control->startOneShotFade (share, share), control->showsBackground = turn % 2 == 0;
        }
        turn % 7 == 0 ? editor->surface.removeChildComponent (&drag) : void();
        button.setLabel (word, turn % 4), button.setGradient ({ { share, colour }, { 1.0f, colour } }, turn % 4);
        drag.setFrames (1 + turn % 2, false), drag.setTextMode (turn % 3 == 0);
        knob.setTrackBounds (5, 5, 100, 10 + turn % 9, true), text.setText (word), selector.setItems ({ word, "b" });
        lines.addPoint (share, 1.0f - share, colour), gradient.addStop (share, colour);
        grid.setCellComponent (turn % 3, 0, turn % 2 == 0 ? static_cast<juce::Component*> (&gradient) : &lines);
        grid.setGaps (turn % 4, 0), grid.setBounds (0, 30, 100 + turn % 9, 40), grid.layOut();
        EXPECT_TRUE (turn % 20 != 0 || frames());
    }
    editor = nullptr;
}
