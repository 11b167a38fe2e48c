// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DeskLook.h"
#include "JudgeKeys.h"
#include "LivePlayer.h"
#include "TransportBar.h"

namespace desk
{

/** What stands in the window: the two sources, the comparator's own window and the transport. */
class DeskContent : public juce::Component, private juce::Timer
{
public:
    DeskContent (ComparisonGraph& graph, LiveDevice& device);

    void paint (juce::Graphics& g) override;
    void resized() override;
    void childBoundsChanged (juce::Component* child) override;
    bool keyPressed (const juce::KeyPress& key) override;

private:
    void timerCallback() override;
    void fit();
    static void paintSource (juce::Graphics& g, juce::Rectangle<int> area, const Recording& recording, bool isA);

    const Material& material;
    const LiveDevice& output;
    juce::String outputText;   // as last painted
    LivePlayer player;
    std::unique_ptr<juce::AudioProcessorEditor> comparator;   // its window, null if it has none
    JudgeKeys keys;
    TransportBar transport;
};

/** The listening desk's window; closing it ends the message loop. */
class DeskWindow : public juce::DocumentWindow
{
public:
    DeskWindow (ComparisonGraph& graph, LiveDevice& device);
    ~DeskWindow() override;

    void activeWindowStatusChanged() override;
    void closeButtonPressed() override;

private:
    DeskLook look;
};

}   // namespace desk
