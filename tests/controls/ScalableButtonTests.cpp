// SPDX-License-Identifier: GPL-3.0-or-later
#include "ControlRig.h"
#include "controls/OxJuceScalableButton.h"
#include "metering/OxJuceMultiGradient.h"

namespace
{

using Stops = std::vector<OxJuceMultiGradientHelper::Stop>;

constexpr int kSize = 32;   // pixels of the picture

struct ScalableRig : ControlRig
{
    ScalableRig (int width, int height) : ControlRig (width, height)
    {
        button.setBounds (0, 0, width, height);
        add (button);
    }
    ~ScalableRig() override { editor = nullptr; }

    OxJuceScalableButton button { "B", "", 9 };
};

/** 100 x 40 pixels of a gradient. */
juce::Image bands (const Stops& rows)
{
    OxJuceMultiGradient gradient;
    gradient.setSize (100, 40);

    for (const auto& row : rows)
        gradient.addStop (row.position, row.colour);

    return painted (100, 40, [&] (auto& g) { gradient.paint (g); });
}

TEST (ScalableButtonTest, DrawsTheGradientOfItsStateAndOverItThatOfTheOverlay)
{
    const juce::Colour dark (40, 30, 0), mid (90, 110, 80), light (160, 150, 170);
    const auto nearTop = mid.interpolatedWith (light, 0.125f / 0.8f),
               nearEnd = light.interpolatedWith (mid, 0.125f / 0.8f);
    const Stops rows[] { { { 1.0f, light }, { 0.0f, dark }, { 0.5f, mid } },
                         { { 0.1f, mid }, { 0.9f, light } },   // within the corners: no rows of their own
                         { { 0.0f, mid }, { 1.0f, dark } },
                         { { 0.0f, light }, { 1.0f, mid } } };
    ScalableRig rig (100, 40);
    const auto shows = [&rig] (const juce::Image& expected) { return looksLike (expected, rig.picture(), 4); };
    const auto hover = [&rig] { return rig.button.mouseEnter (mouseAt (rig.button)), rig.frames (12); };
    juce::Image white (juce::Image::RGB, kSize, kSize, false);
    white.clear (white.getBounds(), juce::Colours::white);
    rig.button.setStripImage (white, 0, 0);
    rig.button.setGradient (rows[0], 0);
    EXPECT_TRUE (shows (bands (rows[0])));
    rig.button.setValue (1.0f, false);
    EXPECT_TRUE (shows (painted (100, 40, [] (auto&) {}))) << "a state that has no gradient while another has";

    for (const int state : { 1, 2, 3 })
        rig.button.setGradient (rows[state], state);

    EXPECT_TRUE (hover() &&
                 shows (bands ({ { 0.0f, mid }, { 0.225f, nearTop }, { 0.775f, nearEnd }, { 1.0f, light } })));
    rig.button.hoverFadeDisabled = false;
    EXPECT_TRUE (hover() && shows (bands (rows[3])));
    rig.button.setValue (0.0f, false);
    EXPECT_TRUE (shows (bands (rows[2])));
    rig.button.dimsWhenLocked = false;
    rig.button.setLocked (true);
    EXPECT_TRUE (shows (bands (rows[0]))) << "no overlay on a locked button";
    EXPECT_EQ (rig.allocationsOfAFrame(), 0);
}

TEST (ScalableButtonTest, ShowsTheLabelOfItsStateIfItFits)
{
    ScalableRig rig (40, 20);
    rig.button.setLabel ("Hill", 1);
    rig.button.setStripImage (juce::Image (juce::Image::ARGB, kSize, kSize, true), 0, 0);
    const auto isInked = [&rig] (const char* text, int fontSize, float value)
    {
        rig.button.setLabel (text, 1);
        rig.button.setFont (rig.editor->surface.getFont (fontSize));
        rig.button.setValue (value, false);
        return difference (painted (40, 20, [] (auto&) {}), rig.picture()).numPixels > 0;
    };
    EXPECT_TRUE (isInked ("Hill", 14, 1.0f) && ! isInked ("Hill", 14, 0.0f));
    EXPECT_TRUE (! isInked ("Hill and dale", 14, 1.0f) && ! isInked ("H", 28, 1.0f));
}

}   // namespace
