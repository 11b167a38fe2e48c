// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LivePlayer.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace desk
{

/** Play and stop, and the place in the loop. */
class TransportBar : public juce::Component, private juce::Timer
{
public:
    /** @param sampleRate in hertz. @param length of the loop in samples */
    TransportBar (LivePlayer& playerToShow, int sampleRate, juce::int64 length);

    void togglePlaying();
    void resized() override;

private:
    juce::String describeTime (double seconds) const;
    void timerCallback() override;

    LivePlayer& player;
    const double rate;
    juce::TextButton playButton { "Play" };
    juce::Slider place { juce::Slider::LinearHorizontal, juce::Slider::NoTextBox };
    juce::Label elapsed, total;
};

}   // namespace desk
