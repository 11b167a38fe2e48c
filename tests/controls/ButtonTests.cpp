// SPDX-License-Identifier: GPL-3.0-or-later
#include "Mouse.h"
#include "controls/OxJuceButton.h"
#include "gui/Pictures.h"
#include "gui/SurfaceRig.h"

namespace
{

using juce::Colour;

/** Writes down what a control says: "(" and ")" round a gesture, and the values between them. */
struct Scribe : OxJuceControl::Listener
{
    void controlGestureBegin (OxJuceControl& control) override { hear ('(', control); }
    void controlGestureEnd (OxJuceControl& control) override { hear (')', control); }
    void controlValueChanged (OxJuceControl& control) override
    {
        hear (control.getValue() > 0.0f ? '1' : '0', control);
    }

    void hear (char what, OxJuceControl& control)
    {
        heard += what;

        if (what == moment)
            reaction (control);
    }

    std::string heard;
    char moment = ' ';
    std::function<void (OxJuceControl&)> reaction;
};

struct HeardButton : OxJuceButton
{
    explicit HeardButton (Scribe& scribe, bool isMomentary = true) : OxJuceButton ("Button")
    {
        momentary = isMomentary;
        addListener (&scribe);
    }
    void press() { mouseDown (mouseAt (*this)); }
    void release() { mouseUp (mouseAt (*this)); }
};

TEST (ButtonTest, TellsEachClickAsOneGesture)
{
    for (const auto& [isMomentary, isLocked, heard] :
         { std::tuple (false, false, "(1)(0)"), { true, false, "(10)(10)" }, { false, true, "" } })
    {
        Scribe scribe;
        HeardButton button (scribe, isMomentary);
        button.setLocked (isLocked);
        button.press(), button.release(), button.press(), button.release();
        EXPECT_EQ (scribe.heard, heard);
    }
}

TEST (ButtonTest, EndsItsGestureOnceWhateverAListenerDoes)
{
    const std::string whole = "(10)";

    for (const auto moment : whole)
    {
        Scribe scribe;
        auto button = std::make_unique<HeardButton> (scribe);
        scribe.moment = moment;
        scribe.reaction = [] (OxJuceControl& control) { control.setLocked (true), control.setLocked (false); };

        if (moment == '1' || moment == '0')
        {
            button->press(), button->release();
            EXPECT_EQ (scribe.heard, whole) << "locked for a moment at " << moment;
        }

        scribe.heard.clear();
        scribe.reaction = [&] (OxJuceControl&) { button.reset(); };
        button->press();

        if (button != nullptr)
            button->release();

        EXPECT_EQ (scribe.heard, whole.substr (0, whole.find (moment) + 1)) << "and is no more";
    }
}

TEST (ButtonTest, TakesAClickInTheWindowToItsParameterUnlessTheHostWantsIt)
{
    struct Host : EditorMouseListener
    {
        bool hostMouseDown (const juce::MouseEvent&, int) override { return takes; }
        bool hostMouseDrag (const juce::MouseEvent&, int) override { return takes; }
        bool hostMouseUp (const juce::MouseEvent&, int) override { return takes; }

        bool takes = false;
    };

    SurfaceRig rig;
    OxJuceButton button ("Button");
    Host host;
    button.setBounds (10, 10, 30, 20);
    button.attach (duoJudge::ToggleAB, rig.editor.get());
    rig.add (button);
    rig.editor->addHostMouseListener (host);
    const auto click = [&rig] (juce::Point<float> at)
    {
        rig.told.clear();

        for (const int keys : { 0, 0 + juce::ModifierKeys::leftButtonModifier, 0 })
            rig.window.getPeer()->handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse, at, keys, 0.0f,
                                                    0.0f, juce::Time::currentTimeMillis());

        return rig.told;
    };
    EXPECT_EQ (click ({ 20.0f, 20.0f }), "3< 3=1 3> ");
    EXPECT_EQ (click ({ 60.0f, 20.0f }), "") << "beside the button";
    host.takes = true;
    EXPECT_EQ (click ({ 20.0f, 20.0f }), "");
    EXPECT_EQ (button.getState(), 1);
    rig.setParamDirect (duoJudge::ToggleAB, 0.0f, true);   // automation
    EXPECT_TRUE (pumpUntil ([&] { return button.getState() == 0; }));
    rig.editor = nullptr;
}

// Looks ---------------------------------------------------------------------------------------------------------------

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
    const Case cases[] {
        { "bare", [] (auto&) {}, juce::Colours::black },
        { "one state", [] (auto& b) { b.setStateFill (fill, 1), b.setValue (0.2f, false); }, fill },
        { "glass", [] (auto& b) { b.setStateFill (Colour (0x80ffff00), 4); }, Colour (0xff808000) },
        { "locked", [] (auto& b) { b.setStateFill (fill, 4), b.setLocked (true); }, dimmed },
        { "disabled", [] (auto& b) { b.setStateFill (fill, 4), b.setEnabled (false); }, dimmed },
        { "undimmed", [] (auto& b) { b.setStateFill (fill, 4), b.setLocked (true), b.dimsWhenLocked = false; }, fill },
        { "picture", [] (auto& b) { b.setImage (picture, 0); }, paint },
        { "tint", [] (auto& b) { b.setImage (picture, 0), b.setTintColour (Colour (0xff0080ff), 0); }, { 0, 50, 60 } },
        { "background", [] (auto& b) { b.showsBackground = true, b.setLocked (true); }, Colour (0xff404040) },
    };
    SurfaceRig rig (24, 16);

    for (const auto& [name, dress, pixel] : cases)
    {
        OxJuceButton button (name);
        button.setBounds (5, 4, 12, 7);
        dress (button);
        rig.add (button);
        const auto shown = rig.picture();
        EXPECT_TRUE (looksLike (painted (24, 16, [&] (auto& g) { g.setOrigin (5, 4), button.paint (g); }), shown));
        EXPECT_TRUE (looksLike (painted (1, 1, [&, c = pixel] (auto& g) { g.fillAll (c); }),
                                shown.getClippedImage ({ 8, 6, 1, 1 })))
            << name;
        rig.editor->surface.removeChildComponent (&button);
    }
}

TEST (ButtonTest, ShowsTheLabelOfItsStateOnAFillOrOnItsPicture)
{
    SurfaceRig rig;
    OxJuceButton button ("Label");
    button.setBounds (0, 0, 80, 60);
    button.setTextColour (juce::Colours::lime, 1);
    button.setStateFill (juce::Colours::black, 4);
    button.setLabel ("Hill", 1);
    rig.add (button);
    const auto isInked = [&] (Colour ink)
    { return difference (painted (80, 60, [] (auto&) {}), rig.picture()).largest == ink.getGreen(); };
    EXPECT_TRUE (isInked (juce::Colours::black));
    button.setValue (1.0f, false);
    EXPECT_TRUE (isInked (juce::Colours::lime));
    button.setLocked (true);
    EXPECT_TRUE (isInked (Colour (0xff008000)));

    EXPECT_TRUE (button.solid);
    button.setImage (juce::Image (juce::Image::ARGB, 4, 4, true), 0);
    button.setLabel ("Hill", 4);
    EXPECT_FALSE (button.solid);
    button.setSolidLabel ("Hill", 4);
    EXPECT_TRUE (button.solid && button.isPaintingUnclipped());
    rig.editor = nullptr;
}

}   // namespace
