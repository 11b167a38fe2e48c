// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskWindow.h"

namespace desk
{

using namespace look;

namespace
{

constexpr int kLeastWidth = 640;

}   // namespace

DeskContent::DeskContent (ComparisonGraph& graph, LiveDevice& device) :
    material (graph.getMaterial()), output (device), player (graph, device), comparator (graph.createEditor()),
    keys (graph), transport (player, material.getSampleRate(), material.getNumSamples())
{
    if (comparator != nullptr)
    {
        // The keys are the desk's.
        comparator->setWantsKeyboardFocus (false);
        addAndMakeVisible (*comparator);
    }

    addAndMakeVisible (transport);
    setWantsKeyboardFocus (true);
    fit();
    timerCallback();
    startTimer (200);   // milliseconds
}

/** The comparator's window has the size that it likes. */
void DeskContent::fit()
{
    const auto width = comparator != nullptr ? comparator->getWidth() + 2 * kMargin : 0;
    const auto height = comparator != nullptr ? comparator->getHeight() + kGap : 0;
    setSize (std::max (kLeastWidth, width),
             kMargin + kTextHeight + kGap + height + kRowHeight + kGap + kTextHeight + kGap);
}

void DeskContent::childBoundsChanged (juce::Component* child)
{
    if (child == comparator.get() && child != nullptr)
        fit();
}

/** The device may come, go and change its rate while the window is open. */
void DeskContent::timerCallback()
{
    const auto offRate = player.isOffRate() ? ": not the recordings' rate, nothing is heard" : "";
    juce::StringArray lines { output.describe() + offRate };
    lines.addArray (material.getLosses());

    if (const auto text = lines.joinIntoString ("; "); std::exchange (outputText, text) != text)
        repaint();
}

void DeskContent::paint (juce::Graphics& g)
{
    g.fillAll (kBackground);
    auto area = getLocalBounds().reduced (kMargin, 0);
    const auto sources = area.withTrimmedTop (kMargin).withHeight (kTextHeight);
    const auto half = (sources.getWidth() - kGap) / 2;
    paintSource (g, sources.withWidth (half), material.a, true);
    paintSource (g, sources.withLeft (sources.getRight() - half), material.b, false);

    g.setColour (output.isOpen() && ! player.isOffRate() && material.getLosses().isEmpty() ? kFaintText : kNotice);
    g.setFont (juce::Font (kTextSize - 1.0f));
    g.drawFittedText (outputText, area.withTrimmedBottom (kGap).removeFromBottom (kTextHeight),
                      juce::Justification::centred, 1);
}

void DeskContent::paintSource (juce::Graphics& g, juce::Rectangle<int> area, const Recording& recording, bool isA)
{
    const auto where = isA ? juce::Justification::centredLeft : juce::Justification::centredRight;
    g.setColour (kLit);
    g.setFont (juce::Font (kTextSize, juce::Font::bold));
    g.drawText (isA ? "A" : "B", isA ? area.removeFromLeft (kTextHeight) : area.removeFromRight (kTextHeight), where);
    g.setColour (kText);
    g.setFont (juce::Font (kTextSize));
    g.drawText (recording.describe(), area, where, true);
}

void DeskContent::resized()
{
    auto area = getLocalBounds().reduced (kMargin, 0);
    area.removeFromTop (kMargin + kTextHeight + kGap);
    area.removeFromBottom (kGap + kTextHeight + kGap);
    transport.setBounds (area.removeFromBottom (kRowHeight));
    area.removeFromBottom (kGap);

    if (comparator != nullptr)
        comparator->setTopLeftPosition (area.getCentreX() - comparator->getWidth() / 2, area.getY());
}

bool DeskContent::keyPressed (const juce::KeyPress& key)
{
    if (key != juce::KeyPress::spaceKey)
        return keys.actOnKey (key);

    transport.togglePlaying();
    return true;
}

DeskWindow::DeskWindow (ComparisonGraph& graph, LiveDevice& device) :
    juce::DocumentWindow ("Duo Judge - Listening Desk", kBackground, DocumentWindow::closeButton | minimiseButton)
{
    setLookAndFeel (&look);
    setUsingNativeTitleBar (true);
    setResizable (false, false);
    setContentOwned (new DeskContent (graph, device), true);
    centreWithSize (getWidth(), getHeight());
    setVisible (true);
    toFront (true);
}

DeskWindow::~DeskWindow()
{
    clearContentComponent();
    setLookAndFeel (nullptr);
}

void DeskWindow::activeWindowStatusChanged()
{
    DocumentWindow::activeWindowStatusChanged();

    // The keys act from the first moment, not from the first click.
    if (isActiveWindow() && getContentComponent() != nullptr)
        getContentComponent()->grabKeyboardFocus();
}

void DeskWindow::closeButtonPressed()
{
    juce::MessageManager::getInstance()->stopDispatchLoop();
}

}   // namespace desk
