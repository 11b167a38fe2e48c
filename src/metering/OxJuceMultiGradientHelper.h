// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Relaxed.h"

#include <vector>

#include <juce_graphics/juce_graphics.h>

/** Colour stops along a way from 0 to 1, and the colour at any place on it. */
class OxJuceMultiGradientHelper
{
public:
    struct Stop
    {
        float position;
        juce::Colour colour;
    };

    OxJuceMultiGradientHelper() = default;
    virtual ~OxJuceMultiGradientHelper() = default;

    /** Puts a stop in its place; one that has exactly this position already takes the new colour. */
    virtual void addStop (float position, juce::Colour colour);

    /** Between two stops a blend of both; beyond the first and the last their colours; white where there is no stop. */
    juce::Colour colourAt (float position) const;

    /** The colour of a point in a square of side 1. */
    juce::Colour colourAt (float x, float y) const { return colourAt (horizontal ? x : y); }

    const std::vector<Stop>& getStops() const noexcept { return stops; }

    Relaxed<bool> horizontal = false;   // from left to right, or else from top to bottom

protected:
    std::vector<Stop> stops;   // ascending; no position twice
};
