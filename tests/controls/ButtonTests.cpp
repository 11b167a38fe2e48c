// SPDX-License-Identifier: GPL-3.0-or-later
#include "ControlRig.h"
#include "Mouse.h"
#include "controls/OxJuceButton.h"
#include "gui/Pictures.h"

namespace
{

using juce::Colour;

/** Writes down what a control says: "(" and ")" round a gesture, and the values between them; reacts at one of these. */
struct Scribe : OxJuceControl::Listener
{
    Scribe (char momentToReact, std::function<void()> what) : moment (momentToReact), reaction (std::move (what)) {}

    void controlGestureBegin (OxJuceControl&) override { hear ('('); }
    void controlGestureEnd (OxJuceControl&) override { hear (')'); }
    void controlValueChanged (OxJuceControl& control) override { hear (control.getValue() > 0.0f ? '1' : '0'); }
    void hear (char what) { heard += what, what == moment ? reaction() : void(); }

    const char moment;
    const std::function<void()> reaction;
    std::string heard;
};

TEST (ButtonTest, TellsEachClickAsOneGestureWhateverAListenerDoes)
{
    struct Case
    {
        bool momentary, locked;
        char moment;   // at which a listener deletes the button, or locks it for an instant
        bool deletes;
        const char* heard;   // through two clicks
    };

    for (const auto& row : { Case { false, false, ' ', false, "(1)(0)" }, Case { true, false, ' ', false, "(10)(10)" },
                             Case { false, true, ' ', false, "" }, Case { true, false, '1', false, "(10)(10)" },
                             Case { true, false, '0', false, "(10)(10)" }, Case { true, false, '(', true, "(" },
                             Case { true, false, '1', true, "(1" }, Case { true, false, '0', true, "(10" },
                             Case { true, false, ')', true, "(10)" } })
    {
        auto button = std::make_unique<OxJuceButton> ("Button");
        Scribe scribe (row.moment,
                       [&] { row.deletes ? button.reset() : (button->setLocked (true), button->setLocked (false)); });
        button->momentary = row.momentary;
        button->addListener (&scribe);
        button->setLocked (row.locked);

        for (int turn = 0; turn < 4 && button != nullptr; ++turn)
            turn % 2 == 0 ? button->mouseDown (mouseAt (*button)) : button->mouseUp (mouseAt (*button));

        EXPECT_EQ (scribe.heard, row.heard) << row.moment << row.deletes;
    }
}

TEST (ButtonTest, TakesAClickInTheWindowToItsParameterUnlessTheHostWantsIt)
{
    struct Host : EditorMouseListener
    {
        bool hostMouseDown (const juce::MouseEvent&, int) override { return true; }
        bool hostMouseDrag (const juce::MouseEvent&, int) override { return true; }
        bool hostMouseUp (const juce::MouseEvent&, int) override { return true; }
    };

    ControlRig rig;
    OxJuceButton button ("Button");
    Host host;
    button.setBounds (10, 10, 30, 20);
    button.attach (duoJudge::ToggleAB, rig.editor.get());
    rig.add (button);
    rig.told.clear();
    rig.click ({ 60, 20 });   // beside the button
    rig.click ({ 20, 20 });
    EXPECT_EQ (rig.told, "3< 3=1 3> ");
    rig.editor->addHostMouseListener (host);
    rig.click ({ 20, 20 });
    EXPECT_EQ (rig.told, "3< 3=1 3> ");
    rig.setParamDirect (duoJudge::ToggleAB, 0.0f, true);   // automation
    EXPECT_TRUE (pumpUntil ([&] { return button.getState() == 0; }));
    rig.editor = nullptr;
}

TEST (ButtonTest, LooksAsItsTwinPaintsIt)
{
    struct Case
    {
        const char* name;
        void (*dress) (OxJuceButton&);
        Colour pixel;   // in its middle, on black
    };
    static const Colour fill { 0xff336699 }, dimmed { 0xff1a334d }, paint { 200, 100, 60 };
    static juce::Image picture (juce::Image::ARGB, 12, 7, true);
    picture.clear (picture.getBounds().reduced (1), paint);
    SurfaceRig rig (24, 16);

    for (const auto& [name, dress, pixel] :
         { Case { "bare", [] (auto&) {}, juce::Colours::black },
           { "one state", [] (auto& b) { b.setStateFill (fill, 1), b.setValue (0.2f, false); }, fill },
           { "glass", [] (auto& b) { b.setStateFill (Colour (0x80ffff00), 4); }, Colour (0xff808000) },
           { "locked", [] (auto& b) { b.setStateFill (fill, 4), b.setLocked (true); }, dimmed },
           { "disabled", [] (auto& b) { b.setStateFill (fill, 4), b.setEnabled (false); }, dimmed },
           { "lit", [] (auto& b) { b.setStateFill (fill, 4), b.setLocked (true), b.dimsWhenLocked = false; }, fill },
           { "picture", [] (auto& b) { b.setImage (picture, 0); }, paint },
           { "tint", [] (auto& b) { b.setImage (picture, 0), b.setTintColour (Colour (0xff0080ff), 0); },
             Colour (0, 50, 60) },
           { "ground", [] (auto& b) { b.showsBackground = true, b.setLocked (true); }, Colour (0xff404040) } })
    {
        OxJuceButton button (name);
        button.setBounds (5, 4, 12, 7);
        dress (button);
        rig.add (button);
        const auto shown = rig.picture(), middle = shown.getClippedImage ({ 8, 6, 1, 1 });
        EXPECT_TRUE (looksLike (painted (24, 16, [&] (auto& g) { g.setOrigin (5, 4), button.paint (g); }), shown));
        EXPECT_TRUE (looksLike (painted (1, 1, [c = pixel] (auto& g) { g.fillAll (c); }), middle)) << name;
        rig.editor->surface.removeChildComponent (&button);
    }
}

TEST (ButtonTest, ShowsTheLabelOfItsState)
{
    SurfaceRig rig;
    OxJuceButton button ("Label");
    button.setBounds (0, 0, 80, 60);
    button.setTextColour (juce::Colours::lime, 1);
    button.setLabel ("Hill", 1);
    EXPECT_TRUE (button.solid) << "with no picture";
    button.setImage (juce::Image (juce::Image::ARGB, 4, 4, true), 0);
    button.setLabel ("Hill", 1);
    EXPECT_FALSE (button.solid);
    rig.add (button);
    const auto ink = [&] { return difference (painted (80, 60, [] (auto&) {}), rig.picture()).largest; };
    EXPECT_EQ (ink(), 0);
    button.setValue (1.0f, false);
    EXPECT_EQ (ink(), 255);
    rig.editor = nullptr;
}

}   // namespace
