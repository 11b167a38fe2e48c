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
}

void DeskLook::drawButtonBackground (juce::Graphics& g, juce::Button& button, const juce::Colour&, bool isOver,
                                     bool isDown)
{
    constexpr float corner = 5.0f;
    const auto area = button.getLocalBounds().toFloat().reduced (0.5f);
    auto fill = kSurface;

    if (isDown)
        fill = fill.darker (0.15f);
    else if (isOver)
        fill = fill.brighter (0.08f);

    const auto strength = button.isEnabled() ? 1.0f : 0.45f;
    g.setColour (fill.withMultipliedAlpha (strength));
    g.fillRoundedRectangle (area, corner);
    g.setColour (kOutline.withMultipliedAlpha (strength));
    g.drawRoundedRectangle (area, corner, 1.0f);
}

void DeskLook::drawButtonText (juce::Graphics& g, juce::TextButton& button, bool, bool)
{
    g.setColour (kText.withMultipliedAlpha (button.isEnabled() ? 1.0f : 0.4f));
    g.setFont (juce::Font (kTextSize + 1.0f));
    g.drawFittedText (button.getButtonText(), button.getLocalBounds().reduced (6, 2), juce::Justification::centred, 1);
}

void DeskLook::drawLinearSlider (juce::Graphics& g, int x, int y, int width, int height, float position, float, float,
                                 juce::Slider::SliderStyle, juce::Slider& slider)
{
    constexpr float thickness = 4.0f;
    const auto radius = static_cast<float> (getSliderThumbRadius (slider));
    const auto area = juce::Rectangle<int> (x, y, width, height).toFloat();
    const auto track = area.withSizeKeepingCentre (area.getWidth(), thickness);
    const auto filled = track.withRight (position);

    g.setColour (kOutline);
    g.fillRoundedRectangle (track, thickness / 2.0f);
    g.setColour (kLit.withMultipliedAlpha (0.8f));
    g.fillRoundedRectangle (filled, thickness / 2.0f);
    g.setColour (kText);
    g.fillEllipse (juce::Rectangle<float> (2.0f * radius, 2.0f * radius).withCentre ({ position, area.getCentreY() }));
}

}   // namespace desk
