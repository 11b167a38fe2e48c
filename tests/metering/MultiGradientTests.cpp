// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxJuceMultiGradientHelper.h"

#include <gtest/gtest.h>

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

}   // namespace
