// SPDX-License-Identifier: GPL-3.0-or-later
// What a control draws on the surface, and what its twin paints, are the same and what they are meant to be.
#include "ControlRig.h"
#include "controls/OxJuceButton.h"
#include "controls/OxJuceTextEdit.h"

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

TEST_F (TwinTest, ATextFieldFillsItsBox)
{
    OxJuceTextEdit field ("field");
    field.setBounds (10, 10, 60, 16);
    field.boxColour = Colour (0x80c04020), field.backgroundColour = juce::Colours::lime;
    field.showsBackground = true;
    field.lockedOpacity = 0.25f;
    field.setLocked (true);
    show (field, std::nullopt);
}

}   // namespace
