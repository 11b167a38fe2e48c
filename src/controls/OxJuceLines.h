// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceControl.h"

#include <vector>

/** A line that scales with the control: the places of its points are shares of width and height. Upright and level
    stretches are exact rows of pixels. It takes no mouse input, and is not dimmed for that. */
class OxJuceLines : public OxJuceControl
{
public:
    OxJuceLines();

    /** Goes on to this point from the last one; a single point shows nothing.
        @param x, y   0 to 1 from the upper left corner */
    void addPoint (float x, float y, juce::Colour colour);

    // OxOglChildComponent
    void draw (int elapsedMs) override;
    const char* getTypeName() const override { return "OxJuceLines"; }

    // juce::Component
    void paint (juce::Graphics& graphics) override;

private:
    struct Point
    {
        float x, y;   // fractions of width and height
        juce::Colour colour;
    };

    /** From one point to the next, in pixels. */
    struct Stretch
    {
        Stretch (const Point& start, const Point& end, juce::Rectangle<int> area, float opacity);

        bool isStrip() const noexcept { return from.x == to.x || from.y == to.y; }
        juce::Rectangle<int> getStrip() const noexcept;

        juce::Point<int> from, to;
        juce::Colour fromColour, toColour;
    };

    template <typename Action>
    void forEachStretch (juce::Rectangle<int> area, Action&& action) const;

    std::vector<Point> points;   // read by the render thread, replaced between two frames
};
