// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxJuceMultiGradientHelper.h"

namespace
{

/** The first stop that is not below the position. */
template <typename Stops>
auto notBelow (Stops& stops, float position)
{
    return std::lower_bound (stops.begin(), stops.end(), position,
                             [] (const auto& stop, float wanted) { return stop.position < wanted; });
}

}   // namespace

void OxJuceMultiGradientHelper::addStop (float position, juce::Colour colour)
{
    if (const auto next = notBelow (stops, position); next == stops.end() || next->position != position)
        stops.insert (next, { position, colour });
    else
        next->colour = colour;
}

juce::Colour OxJuceMultiGradientHelper::colourAt (float position) const
{
    if (stops.empty())
        return juce::Colours::white;

    const auto upper = notBelow (stops, position);

    if (upper == stops.end())
        return stops.back().colour;

    if (upper == stops.begin() || upper->position == position)
        return upper->colour;

    const auto lower = std::prev (upper);
    const auto wayDown = (upper->position - position) / (upper->position - lower->position);
    return upper->colour.interpolatedWith (lower->colour, wayDown);
}
