// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceLines.h"

#include "gui/OxOglComponent.h"

OxJuceLines::OxJuceLines() : OxJuceControl ({})
{
    setLocked (true);
    dimsWhenLocked = false;
}

void OxJuceLines::addPoint (float x, float y, juce::Colour colour)
{
    auto extended = points;
    extended.push_back ({ x, y, colour });
    const ScopedChange change (*this);
    points.swap (extended);
}

OxJuceLines::Stretch::Stretch (const Point& start, const Point& end, juce::Rectangle<int> area, float opacity) :
    fromColour (start.colour.withAlpha (opacity)), toColour (end.colour.withAlpha (opacity))
{
    const auto pixelOf = [size = area.toFloat()] (const Point& point) {
        return juce::Point (static_cast<int> (point.x * size.getWidth()),
                            static_cast<int> (point.y * size.getHeight()));
    };
    from = pixelOf (start);
    to = pixelOf (end);
}

/** One pixel wide, to the right of the line and below it as seen on the way down or to the right. */
juce::Rectangle<int> OxJuceLines::Stretch::getStrip() const noexcept
{
    const auto left = std::min (from.x, to.x), top = std::min (from.y, to.y);

    if (from.x == to.x)
        return { to.y < from.y ? left - 1 : left, top, 1, std::abs (to.y - from.y) };

    return { left, to.x < from.x ? top - 1 : top, std::abs (to.x - from.x), 1 };
}

template <typename Action>
void OxJuceLines::forEachStretch (juce::Rectangle<int> area, Action&& action) const
{
    if (area.isEmpty())
        return;

    const auto opacity = getOpacity();

    for (std::size_t index = 1; index < points.size(); ++index)
        action (Stretch (points[index - 1], points[index], area, opacity));
}

void OxJuceLines::draw (int)
{
    auto* const target = surface.get();

    if (target == nullptr)
        return;

    forEachStretch (getDrawnLocalBounds(),
                    [&] (const Stretch& stretch)
                    {
                        if (! stretch.isStrip())
                            return drawLine (stretch.from, stretch.fromColour, stretch.to, stretch.toColour);

                        target->glState.pending.colour = stretch.fromColour;
                        drawFilledRect (stretch.getStrip());
                    });
}

void OxJuceLines::paint (juce::Graphics& graphics)
{
    forEachStretch (getLocalBounds(),
                    [&] (const Stretch& stretch)
                    {
                        graphics.setColour (stretch.fromColour);

                        if (stretch.isStrip())
                            return graphics.fillRect (stretch.getStrip());

                        const auto from = stretch.from.toFloat(), to = stretch.to.toFloat();
                        graphics.setGradientFill ({ stretch.fromColour, from, stretch.toColour, to, false });
                        graphics.drawLine ({ from, to });
                    });
}
