// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskLook.h"

namespace desk
{

using namespace look;

DeskLook::DeskLook()
{
    setColour (juce::ResizableWindow::backgroundColourId, kBackground);
    setColour (juce::Label::textColourId, kText);
    setColour (juce::TextButton::textColourOffId, kText);
    setColour (juce::TextButton::textColourOnId, kTextOnLit);
}

void DeskLook::drawButtonBackground (juce::Graphics& g, juce::Button& button, const juce::Colour&, bool isOver,
                                     bool isDown)
{
    constexpr float corner = 5.0f;
    const auto area = button.getLocalBounds().toFloat().reduced (0.5f);
    const auto isLit = button.getToggleState();
    auto fill = isLit ? kLit : kSurface;

    if (isDown)
        fill = fill.darker (0.15f);
    else if (isOver)
        fill = fill.brighter (0.08f);

    const auto strength = button.isEnabled() ? 1.0f : 0.45f;
    g.setColour (fill.withMultipliedAlpha (strength));
    g.fillRoundedRectangle (area, corner);
    g.setColour ((isLit ? kLit : kOutline).withMultipliedAlpha (strength));
    g.drawRoundedRectangle (area, corner, 1.0f);
}

void DeskLook::drawButtonText (juce::Graphics& g, juce::TextButton& button, bool, bool)
{
    const auto isLarge = button.getHeight() >= kLargeButtonHeight && button.getButtonText().length() == 1;
    const auto colour = button.getToggleState() ? kTextOnLit : kText;
    g.setColour (colour.withMultipliedAlpha (button.isEnabled() ? 1.0f : 0.4f));
    g.setFont (isLarge ? juce::Font (kLargeTextSize, juce::Font::bold) : juce::Font (kTextSize + 1.0f));
    g.drawFittedText (button.getButtonText(), button.getLocalBounds().reduced (6, 2), juce::Justification::centred, 1);
}

void DeskLook::drawLinearSlider (juce::Graphics& g, int x, int y, int width, int height, float position, float, float,
                                 juce::Slider::SliderStyle, juce::Slider& slider)
{
    constexpr float thickness = 4.0f;
    const auto radius = static_cast<float> (getSliderThumbRadius (slider));
    const auto area = juce::Rectangle<int> (x, y, width, height).toFloat();
    const auto track = area.withSizeKeepingCentre (area.getWidth(), thickness);

    // A scale with two signs is filled from its middle, any other from its beginning.
    const auto origin = slider.getMinimum() < 0.0 ? track.getCentreX() : track.getX();
    const auto filled = track.withLeft (std::min (origin, position)).withRight (std::max (origin, position));

    g.setColour (kOutline);
    g.fillRoundedRectangle (track, thickness / 2.0f);
    g.setColour (kLit.withMultipliedAlpha (0.8f));
    g.fillRoundedRectangle (filled, thickness / 2.0f);
    g.setColour (kText);
    g.fillEllipse (juce::Rectangle<float> (2.0f * radius, 2.0f * radius).withCentre ({ position, area.getCentreY() }));
}

}   // namespace desk
