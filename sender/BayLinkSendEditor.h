// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BayLinkSendProcessor.h"

#include <array>

/** The sender's window: the pod's name to type over, who listens, and the level that goes to them. */
class BayLinkSendEditor final : public juce::AudioProcessorEditor, private juce::Timer
{
public:
    explicit BayLinkSendEditor (BayLinkSendProcessor& owner);

    // juce::Component
    void paint (juce::Graphics& g) override;
    void resized() override;

private:
    void timerCallback() override;
    void showLevel();
    void showListeners();
    void showName();

    BayLinkSendProcessor& sender;
    std::array<juce::Label, 3> captions;
    juce::Label listenersLabel, levelLabel;
    juce::TextEditor nameField;
    juce::Rectangle<int> meterArea;
    float levelDb;   // what the bar shows: its fall is slowed down
};
