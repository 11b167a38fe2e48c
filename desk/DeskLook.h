// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace desk
{

namespace look
{

const juce::Colour kBackground { 0xff1b1e23 };
const juce::Colour kSurface { 0xff2a2f37 };
const juce::Colour kOutline { 0xff3c434e };
const juce::Colour kText { 0xffe6e9ee };
const juce::Colour kFaintText { 0xff98a1ae };
const juce::Colour kLit { 0xff5fb3e6 };
const juce::Colour kNotice { 0xffe0b050 };

constexpr int kMargin = 16, kGap = 12, kRowHeight = 32, kTextHeight = 20;
constexpr float kTextSize = 14.0f;

}   // namespace look

/** The dark, flat look of the desk's own controls. */
class DeskLook : public juce::LookAndFeel_V4
{
public:
    DeskLook();

    void drawButtonBackground (juce::Graphics& g, juce::Button& button, const juce::Colour& colour, bool isOver,
                               bool isDown) override;
    void drawButtonText (juce::Graphics& g, juce::TextButton& button, bool isOver, bool isDown) override;
    void drawLinearSlider (juce::Graphics& g, int x, int y, int width, int height, float position, float minimum,
                           float maximum, juce::Slider::SliderStyle style, juce::Slider& slider) override;
    int getSliderThumbRadius (juce::Slider&) override { return 7; }
};

}   // namespace desk
