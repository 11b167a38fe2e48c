// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceLines.h"
#include "gui/Pictures.h"
#include "gui/SurfaceRig.h"

namespace
{

TEST (LinesTest, DrawsUprightAndLevelStretchesAsRowsOfPixels)
{
    struct Case
    {
        std::vector<juce::Point<float>> points;
        juce::Rectangle<int> strip;   // in a box of 150 x 50
    };
    const juce::Point<float> left { 0.1f, 0.5f }, right { 0.9f, 0.5f }, top { 0.2f, 0.1f }, bottom { 0.2f, 0.9f };
    SurfaceRig rig (160, 60);

    for (const auto& [points, strip] :
         { Case { { left, right }, { 15, 25, 120, 1 } }, Case { { right, left }, { 15, 24, 120, 1 } },
           Case { { top, bottom }, { 30, 5, 1, 40 } }, Case { { bottom, top }, { 29, 5, 1, 40 } },
           Case { { left }, {} }, Case { { left, left }, {} } })
    {
        OxJuceLines lines;
        lines.setBounds (4, 4, 150, 50);
        rig.add (lines);

        for (const auto point : points)
            lines.addPoint (point.x, point.y, juce::Colours::skyblue);

        const auto expected = painted (160, 60,
                                       [area = strip + juce::Point (4, 4)] (auto& g)
                                       { g.setColour (juce::Colours::skyblue), g.fillRect (area); });
        EXPECT_TRUE (looksLike (expected, rig.picture())) << strip.toString();
        EXPECT_TRUE (looksLike (expected, painted (160, 60, [&] (auto& g) { g.setOrigin (4, 4), lines.paint (g); })));
        rig.editor->surface.removeChildComponent (&lines);
    }
}

TEST (LinesTest, BlendsTheColoursOfASlantingStretchAndGoesOnFromIt)
{
    SurfaceRig rig (60, 60);
    OxJuceLines lines;
    lines.setBounds (0, 0, 60, 60);
    lines.addPoint (0.0f, 0.0f, juce::Colours::red);
    lines.addPoint (0.5f, 0.5f, juce::Colours::lime), lines.addPoint (0.5f, 1.0f, juce::Colours::lime);
    rig.add (lines);

    for (const auto& shown : { rig.picture(), painted (60, 60, [&] (auto& g) { lines.paint (g); }) })
    {
        EXPECT_GT (shown.getPixelAt (3, 3).getRed(), 4 * shown.getPixelAt (3, 3).getGreen());
        EXPECT_GT (shown.getPixelAt (27, 27).getGreen(), 4 * shown.getPixelAt (27, 27).getRed());
        EXPECT_EQ (shown.getPixelAt (30, 45), juce::Colours::lime);
        EXPECT_EQ (shown.getPixelAt (10, 30), juce::Colours::black);
    }

    rig.editor = nullptr;
}

}   // namespace
