// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/Pictures.h"
#include "gui/SurfaceRig.h"
#include "metering/OxJuceMultiGradient.h"

namespace
{

using namespace juce;

TEST (MultiGradientTest, FindsTheColourOfAnyPlace)
{
    OxJuceMultiGradientHelper gradient;
    EXPECT_EQ (gradient.colourAt (0.3f), Colours::white);
    gradient.addStop (0.75f, Colours::red);
    EXPECT_EQ (gradient.colourAt (0.9f), Colours::red);
    gradient.addStop (1.0f, Colours::blue), gradient.addStop (0.25f, Colours::black);
    gradient.addStop (0.75f, Colours::white);   // in place of the red
    EXPECT_EQ (gradient.getStops().size(), 3u);

    for (const auto& [place, colour] : { std::pair (0.0f, Colours::black),
                                         { 0.25f, Colours::black },
                                         { 0.5f, Colour (0xff7f7f7f) },
                                         { 0.75f, Colours::white },
                                         { 2.0f, Colours::blue } })
        EXPECT_EQ (gradient.colourAt (place), colour) << place;

    EXPECT_EQ (gradient.colourAt (0.75f, 1.0f), Colours::blue);
    gradient.horizontal = true;
    EXPECT_EQ (gradient.colourAt (0.75f, 1.0f), Colours::white);
}

TEST (MultiGradientTest, FillsFromTheFirstStopToTheLastAndNoFurther)
{
    for (const bool across : { false, true })
    {
        SurfaceRig rig (50, 50);
        OxJuceMultiGradient gradient;
        gradient.horizontal = across;
        gradient.setBounds (0, 0, 50, 50);
        rig.add (gradient);
        gradient.addStop (0.2f, Colour (0xff404040));
        EXPECT_EQ (rig.picture().getPixelAt (25, 25), Colours::black) << "one stop";
        gradient.addStop (0.8f, Colour (0xff151515)), gradient.addStop (0.4f, Colour (0xff504040));
        auto expected = painted (50, 50, [&] (Graphics& g) { gradient.paint (g); });

        for (const int clear : { 0, 40 })
            expected.clear (across ? Rectangle (clear, 0, 10, 50) : Rectangle (0, clear, 50, 10));

        EXPECT_TRUE (looksLike (expected, rig.picture(), 2));
        rig.editor = nullptr;
    }
}

}   // namespace
