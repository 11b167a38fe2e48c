// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxJuceMultiGradient.h"

#include "gui/OxOglComponent.h"

using namespace juce::gl;

namespace
{

int truncated (float coordinate)
{
    return static_cast<int> (coordinate);
}

}   // namespace

OxJuceMultiGradient::OxJuceMultiGradient (const juce::String& nameOfComponent) : OxOglChildComponent (nameOfComponent)
{
}

void OxJuceMultiGradient::addStop (float position, juce::Colour colour)
{
    const ScopedChange change (*this);
    OxJuceMultiGradientHelper::addStop (position, colour);
}

void OxJuceMultiGradient::draw (int)
{
    auto* const target = surface.get();

    if (target == nullptr)
        return;

    const auto area = getDrawnLocalBounds();
    const auto width = area.getWidth(), height = area.getHeight();
    const bool goesAcross = horizontal;
    const auto length = static_cast<float> (goesAcross ? width : height);
    target->applyGlState();
    glBegin (GL_QUADS);

    for (std::size_t index = 1; index < stops.size(); ++index)
    {
        const auto &from = stops[index - 1], &to = stops[index];
        const auto near = truncated (length * from.position), far = truncated (length * to.position);
        target->addVertex (goesAcross ? juce::Point (near, height) : juce::Point (0, near), from.colour);
        target->addVertex (goesAcross ? juce::Point (near, 0) : juce::Point (width, near), from.colour);
        target->addVertex (goesAcross ? juce::Point (far, 0) : juce::Point (width, far), to.colour);
        target->addVertex (goesAcross ? juce::Point (far, height) : juce::Point (0, far), to.colour);
    }

    glEnd();
}

void OxJuceMultiGradient::paint (juce::Graphics& graphics)
{
    if (stops.size() < 2)
        return;

    const auto area = getLocalBounds().toFloat();
    const auto middle = area.getCentre();
    const auto start = horizontal ? area.getTopLeft().withY (middle.y) : area.getTopLeft().withX (middle.x);
    const auto end = horizontal ? area.getTopRight().withY (middle.y) : area.getBottomLeft().withX (middle.x);
    juce::ColourGradient fill (stops.front().colour, start, stops.back().colour, end, false);

    for (const auto& stop : stops)
        fill.addColour (juce::jlimit (0.0f, 1.0f, stop.position), stop.colour);

    graphics.setGradientFill (fill);
    graphics.fillRect (area);
}
