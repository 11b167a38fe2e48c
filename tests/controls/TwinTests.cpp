// SPDX-License-Identifier: GPL-3.0-or-later
// What a control draws on the surface, and what its twin paints, are the same and what they are meant to be.
#include "ControlRig.h"
#include "controls/OxJuceButton.h"
#include "controls/OxJuceDragControl.h"
#include "controls/OxJuceLines.h"
#include "controls/OxJuceSlider.h"
#include "controls/OxJuceTextEdit.h"
#include "metering/OxJuceMultiGradient.h"

namespace
{

using juce::Colour;
using Box = juce::Rectangle<int>;
using Patches = std::vector<std::pair<Colour, Box>>;   // on black

struct TwinTest : testing::Test
{
    void show (OxOglChildComponent& control, const std::optional<Patches>& patches)
    {
        rig.add (control);
        const auto shown = rig.picture();
        const auto twin = [&] (auto& g) { g.setOrigin (control.getPosition()), control.paint (g); };
        const auto wanted = [&] (auto& g)
        {
            for (const auto& [colour, area] : *patches)
                g.setColour (colour), g.fillRect (area);
        };
        EXPECT_TRUE (looksLike (painted (80, 60, twin), shown)) << control.getTypeName();
        EXPECT_TRUE (! patches || looksLike (painted (80, 60, wanted), shown));
        EXPECT_EQ (rig.allocationsOfAFrame(), 0);
        rig.editor->surface.removeChildComponent (&control);
    }

    ControlRig rig;
};

TEST_F (TwinTest, AButtonShowsItsFillOrPicture)
{
    const Box box (5, 4, 12, 7), inside = box.reduced (1);
    const Colour fill { 0xff336699 }, dimmed { 0xff1a334d }, paint { 200, 100, 60 };
    juce::Image picture (juce::Image::ARGB, 12, 7, true);
    picture.clear (picture.getBounds().reduced (1), paint);
    OxJuceButton button ("button"), ground ("ground");
    button.setBounds (box), ground.setBounds (box);
    show (button, Patches());
    button.setStateFill (Colour (0x80ffff00), 4);
    show (button, Patches { { Colour (0xff808000), box } });
    button.setStateFill (fill, 1), button.setValue (0.2f, false);
    show (button, Patches { { fill, box } });
    button.setEnabled (false);
    show (button, Patches { { dimmed, box } });
    button.setEnabled (true), button.setLocked (true);
    show (button, Patches { { dimmed, box } });
    button.dimsWhenLocked = button.solid = false;
    button.setImage (picture, 1);
    show (button, Patches { { paint, inside } });
    button.setTintColour (Colour (0xff0080ff), 1);
    show (button, Patches { { Colour (0, 50, 60), inside } });
    ground.showsBackground = true, ground.setLocked (true);
    show (ground, Patches { { Colour (0xff404040), box } });
}

TEST_F (TwinTest, ASliderShowsTrackBarAndThumb)
{
    const auto grey = juce::Colours::grey;
    juce::Image thumbImage (juce::Image::RGB, 11, 9, false);
    thumbImage.clear (thumbImage.getBounds(), grey);
    OxJuceSlider slider ("slider");
    slider.setImage (thumbImage, 0);
    slider.trackColour = Colour (0xff202020);
    slider.barColour = Colour (0xff402000), slider.barColourAtOne = Colour (0xff40a000);
    slider.thumbOffset = juce::Point (1, 2);

    for (const auto& [value, bar, thumb] : { std::tuple (0.25f, Box (15, 10, 10, 10), Box (20, 12, 11, 9)),
                                             { 0.75f, { 15, 10, 30, 10 }, { 40, 12, 11, 9 } } })
    {
        const Colour barColour { value < 0.5f ? 0xff404000 : 0xff408000 };
        const Box track (15, 10, 40, 10);
        slider.setTrackBounds (track, true);
        slider.setValue (value, false);
        show (slider, Patches { { slider.trackColour, track }, { barColour, bar }, { grey.withAlpha (0.8f), thumb } });
    }
}

TEST_F (TwinTest, LinesReachFromPointToPointAsRowsOfPixels)
{
    for (const auto& [from, to, top] : { std::tuple (0.1f, 0.9f, 30), { 0.9f, 0.1f, 29 } })
    {
        OxJuceLines lines;
        lines.setBounds (0, 0, 80, 60);
        lines.addPoint (from, 0.5f, juce::Colours::skyblue);
        show (lines, Patches());
        lines.addPoint (to, 0.5f, juce::Colours::skyblue);
        show (lines, Patches { { juce::Colours::skyblue, Box (8, top, 64, 1) } });
    }
}

TEST_F (TwinTest, AGradientFillsFromTheFirstStopToTheLastAndATextFieldItsBox)
{
    OxJuceMultiGradient gradient;
    gradient.setBounds (0, 0, 50, 50);
    gradient.addStop (0.2f, Colour (0xff404040));
    show (gradient, Patches());
    gradient.addStop (0.8f, Colour (0xff151515)), gradient.addStop (0.4f, Colour (0xff504040));
    auto expected = painted (80, 60, [&] (auto& g) { gradient.paint (g); });

    for (const int clear : { 0, 40 })   // where the twin goes on
        expected.clear (Box (0, clear, 50, 10));

    rig.add (gradient);
    EXPECT_TRUE (looksLike (expected, rig.picture(), 2));
    rig.editor->surface.removeChildComponent (&gradient);

    OxJuceTextEdit field ("field");
    field.setBounds (10, 10, 60, 16);
    field.boxColour = Colour (0x80c04020), field.backgroundColour = juce::Colours::lime;
    field.showsBackground = true;
    field.lockedOpacity = 0.25f;
    field.setLocked (true);
    show (field, std::nullopt);
}

}   // namespace
