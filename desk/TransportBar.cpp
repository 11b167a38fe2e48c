// SPDX-License-Identifier: GPL-3.0-or-later
#include "TransportBar.h"

#include "DeskLook.h"

namespace desk
{

using namespace look;

TransportBar::TransportBar (LivePlayer& playerToShow, int sampleRate, juce::int64 length) :
    player (playerToShow), rate (sampleRate)
{
    addAndMakeVisible (playButton);
    playButton.setWantsKeyboardFocus (false);
    playButton.onClick = [this] { togglePlaying(); };

    addAndMakeVisible (place);
    place.setRange (0.0, static_cast<double> (length), 1.0);
    place.setWantsKeyboardFocus (false);
    place.onValueChange = [this, length]
    { player.seek (std::min (length - 1, static_cast<juce::int64> (place.getValue()))); };

    for (auto* label : { &elapsed, &total })
    {
        addAndMakeVisible (label);
        label->setFont (juce::Font (juce::Font::getDefaultMonospacedFontName(), kTextSize, juce::Font::plain));
        label->setJustificationType (juce::Justification::centred);
        label->setColour (juce::Label::textColourId, kFaintText);
        label->setBorderSize ({});
    }

    total.setText (describeTime (static_cast<double> (length) / rate), juce::dontSendNotification);
    timerCallback();
    constexpr int refreshPeriod = 30;   // milliseconds
    startTimer (refreshPeriod);
}

void TransportBar::togglePlaying()
{
    player.setPlaying (! player.isPlaying());
    timerCallback();
}

void TransportBar::resized()
{
    constexpr int buttonWidth = 76, timeWidth = 72;
    auto area = getLocalBounds();
    playButton.setBounds (area.removeFromLeft (buttonWidth));
    elapsed.setBounds (area.removeFromLeft (timeWidth));
    total.setBounds (area.removeFromRight (timeWidth));
    place.setBounds (area);
}

juce::String TransportBar::describeTime (double seconds) const
{
    const auto tenths = static_cast<juce::int64> (seconds * 10.0);
    return juce::String (tenths / 600) + ":" + juce::String (tenths / 10 % 60).paddedLeft ('0', 2) + "." +
           juce::String (tenths % 10);
}

void TransportBar::timerCallback()
{
    const auto position = static_cast<double> (player.getPosition());
    playButton.setButtonText (player.isPlaying() ? "Stop" : "Play");
    elapsed.setText (describeTime (position / rate), juce::dontSendNotification);

    if (! place.isMouseButtonDown())
        place.setValue (position, juce::dontSendNotification);
}

}   // namespace desk
