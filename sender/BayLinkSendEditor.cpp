// SPDX-License-Identifier: GPL-3.0-or-later
#include "BayLinkSendEditor.h"

namespace
{

constexpr int kMargin = 16, kRowHeight = 28, kMeterHeight = 8, kCaptionWidth = 80, kLevelWidth = 64;
constexpr int kWidth = 320, kHeight = 2 * kMargin + 3 * kRowHeight;
constexpr float kTextSize = 14.0f;

constexpr int kTickMs = 40;
constexpr float kLowestDb = -60.0f, kFullDb = 0.0f, kHighestDb = 60.0f;
constexpr float kFallDbPerTick = 0.8f;   // 20 dB a second

const juce::Colour kBackground { 0xff1b1e23 }, kSurface { 0xff2a2f37 }, kOutline { 0xff3c434e };
const juce::Colour kText { 0xffe6e9ee }, kFaintText { 0xff98a1ae }, kLit { 0xff5fb3e6 }, kNotice { 0xffe0b050 };

}   // namespace

BayLinkSendEditor::BayLinkSendEditor (BayLinkSendProcessor& owner) :
    AudioProcessorEditor (owner), sender (owner), levelDb (kLowestDb)
{
    const auto show = [this] (juce::Label& label, const juce::String& text, juce::Colour colour)
    {
        label.setText (text, juce::dontSendNotification);
        label.setFont (juce::Font (kTextSize));
        label.setColour (juce::Label::textColourId, colour);
        label.setBorderSize ({});
        addAndMakeVisible (label);
    };
    show (captions[0], "Name", kFaintText);
    show (captions[1], "Listeners", kFaintText);
    show (captions[2], "Level", kFaintText);
    show (listenersLabel, {}, kText);
    show (levelLabel, {}, kText);
    levelLabel.setJustificationType (juce::Justification::centredRight);

    nameField.setTitle ("Name");
    nameField.setFont (juce::Font (kTextSize));
    nameField.setIndents (8, 0);
    nameField.setJustification (juce::Justification::centredLeft);
    nameField.setInputRestrictions (sizeof (baylink::PodInfo::name) - 1);
    nameField.setColour (juce::TextEditor::backgroundColourId, kSurface);
    nameField.setColour (juce::TextEditor::outlineColourId, kOutline);
    nameField.setColour (juce::TextEditor::focusedOutlineColourId, kLit);
    nameField.setColour (juce::TextEditor::textColourId, kText);
    nameField.setColour (juce::TextEditor::highlightColourId, kLit.withAlpha (0.4f));
    nameField.setColour (juce::TextEditor::highlightedTextColourId, kText);
    nameField.setColour (juce::CaretComponent::caretColourId, kText);
    nameField.onTextChange = [this] { sender.setTypedName (nameField.getText()); };
    nameField.onReturnKey = nameField.onEscapeKey = [this] { nameField.giveAwayKeyboardFocus(); };
    addAndMakeVisible (nameField);

    setSize (kWidth, kHeight);
    timerCallback();
    startTimer (kTickMs);
}

void BayLinkSendEditor::paint (juce::Graphics& g)
{
    g.fillAll (kBackground);
    const auto meter = meterArea.toFloat();
    const auto corner = meter.getHeight() / 2.0f;
    const auto lit = juce::jmap (juce::jlimit (kLowestDb, kFullDb, levelDb), kLowestDb, kFullDb, 0.0f, 1.0f);

    juce::Path rounded;
    rounded.addRoundedRectangle (meter, corner);
    g.reduceClipRegion (rounded);
    g.fillAll (kSurface);
    g.setColour (levelDb >= kFullDb ? kNotice : kLit);
    g.fillRect (meter.withWidth (lit * meter.getWidth()));
}

void BayLinkSendEditor::resized()
{
    auto area = getLocalBounds().reduced (kMargin);
    auto captionColumn = area.removeFromLeft (kCaptionWidth);

    for (auto& caption : captions)
        caption.setBounds (captionColumn.removeFromTop (kRowHeight));

    nameField.setBounds (area.removeFromTop (kRowHeight));
    listenersLabel.setBounds (area.removeFromTop (kRowHeight));
    auto levelRow = area.removeFromTop (kRowHeight);
    levelLabel.setBounds (levelRow.removeFromRight (kLevelWidth));
    meterArea = levelRow.withSizeKeepingCentre (levelRow.getWidth(), kMeterHeight);
}

void BayLinkSendEditor::timerCallback()
{
    showName();
    showListeners();
    showLevel();
}

/** A session may be loaded, or the track renamed, while the window is open; what is being typed stays. */
void BayLinkSendEditor::showName()
{
    if (const auto trackName = sender.getTrackName(); nameField.getTextToShowWhenEmpty() != trackName)
    {
        nameField.setTextToShowWhenEmpty (trackName, kFaintText);
        nameField.repaint();
    }

    if (const auto typedName = sender.getTypedName();
        ! nameField.hasKeyboardFocus (true) && nameField.getText() != typedName)
        nameField.setText (typedName, false);
}

void BayLinkSendEditor::showListeners()
{
    const auto isConnected = sender.isConnected();
    const auto count = sender.countListeners();
    listenersLabel.setColour (juce::Label::textColourId, isConnected ? kText : kNotice);
    listenersLabel.setText (! isConnected ? "Pod manager not found"
                            : count == 0  ? "None"
                                          : juce::String (count),
                            juce::dontSendNotification);
}

void BayLinkSendEditor::showLevel()
{
    const auto peakDb = juce::Decibels::gainToDecibels (sender.takePeak(), kLowestDb);
    levelDb = std::min (std::max (peakDb, levelDb - kFallDbPerTick), kHighestDb);
    levelLabel.setText (levelDb <= kLowestDb ? juce::String ("Silent") : juce::String (levelDb, 1) + " dB",
                        juce::dontSendNotification);
    repaint (meterArea);
}
