// SPDX-License-Identifier: GPL-3.0-or-later
#include "JudgePanel.h"

#include "DeskLook.h"

namespace desk
{

using namespace look;
using Kind = Action::Kind;

namespace
{

constexpr int kRefreshPeriod = 30;   // milliseconds
constexpr int kBigHeight = 76, kCentreWidth = 140, kLowerWidth = 140;

juce::String describeGain (float decibels)
{
    return (decibels > 0.0f ? "+" : "") + juce::String (decibels, 1) + " dB";
}

}   // namespace

const JudgePanel::Faces& JudgePanel::getFaces (View view)
{
    static const Faces normal { { { Kind::selectA, "A" }, { Kind::selectB, "B" }, { Kind::startTest, "Start test" } } };
    static const Faces test { { { Kind::flipX, "X" },
                                { Kind::flipY, "Y" },
                                { Kind::choose, "Choose" },
                                { Kind::reveal, "Reveal" },
                                { Kind::end, "Cancel" } } };
    static const Faces results {
        { { Kind::selectA, "A" }, { Kind::selectB, "B" }, {}, { Kind::resume, "Resume" }, { Kind::end, "End" } }
    };
    return view == View::normal ? normal : view == View::test ? test : results;
}

JudgePanel::JudgePanel (ComparisonGraph& comparison) : graph (comparison), judge (comparison)
{
    for (std::size_t place = 0; place < buttons.size(); ++place)
    {
        addChildComponent (buttons[place]);
        buttons[place].setWantsKeyboardFocus (false);
        buttons[place].onClick = [this, place]
        {
            if (const auto kind = getFaces (judge.getView())[place].kind)
                perform (*kind);
        };
    }

    const auto addLabel = [this] (juce::Label& label, float size, juce::Justification where, juce::Colour colour)
    {
        addAndMakeVisible (label);
        label.setFont (juce::Font (size));
        label.setJustificationType (where);
        label.setColour (juce::Label::textColourId, colour);
        label.setBorderSize ({});
        label.setInterceptsMouseClicks (false, false);
    };
    addLabel (status, kTextSize, juce::Justification::centred, kFaintText);
    addLabel (gainName, kTextSize, juce::Justification::centredLeft, kFaintText);
    addLabel (gainValue, kTextSize, juce::Justification::centredRight, kText);
    addLabel (result, kLargeTextSize, juce::Justification::centred, kText);
    addLabel (counts, kTextSize, juce::Justification::centred, kFaintText);
    gainName.setText ("Gain of B", juce::dontSendNotification);

    addAndMakeVisible (gain);
    gain.setRange (-kMaxGain, kMaxGain, 0.1);
    gain.setDoubleClickReturnValue (true, 0.0);
    gain.setWantsKeyboardFocus (false);
    gain.onValueChange = [this] { judge.perform ({ Kind::gain, static_cast<float> (gain.getValue()) }); };

    refresh();
    startTimer (kRefreshPeriod);
}

bool JudgePanel::actOnKey (const juce::KeyPress& key)
{
    const auto isEnter = key == juce::KeyPress::returnKey;
    const auto letter = juce::CharacterFunctions::toUpperCase (key.getTextCharacter());
    const std::pair<juce::juce_wchar, Kind> letters[] { { 'A', Kind::selectA }, { 'B', Kind::selectB },
                                                        { 'X', Kind::flipX },   { 'Y', Kind::flipY },
                                                        { 'R', Kind::reveal },  { 'E', Kind::end } };

    if (isEnter)
        perform (Kind::choose);

    for (const auto& [character, kind] : letters)
    {
        if (letter == character)
        {
            perform (kind);
            return true;
        }
    }

    return isEnter;
}

int JudgePanel::getPreferredHeight()
{
    return kBigHeight + kGap + kRowHeight + kGap + kTextHeight;
}

void JudgePanel::paint (juce::Graphics& g)
{
    if (judge.getView() != View::results)
        return;

    g.setColour (kOutline);
    const auto area = buttons[centre].getBounds().toFloat().reduced (0.5f);
    g.drawRoundedRectangle (area, 5.0f, 1.0f);
}

void JudgePanel::resized()
{
    auto area = getLocalBounds();
    auto big = area.removeFromTop (kBigHeight);
    const auto middle = big.withSizeKeepingCentre (kCentreWidth, kBigHeight);
    buttons[first].setBounds (big.withRight (middle.getX() - kGap));
    buttons[second].setBounds (big.withLeft (middle.getRight() + kGap));
    buttons[centre].setBounds (middle);
    result.setBounds (middle.withTrimmedTop (8).withHeight (38));
    counts.setBounds (middle.withTrimmedBottom (8).removeFromBottom (kTextHeight));

    area.removeFromTop (kGap);
    auto lower = area.removeFromTop (kRowHeight);
    buttons[lowerFirst].setBounds (lower.withWidth (kLowerWidth));
    buttons[lowerSecond].setBounds (lower.withLeft (lower.getRight() - kLowerWidth));

    gainName.setBounds (lower.removeFromLeft (110));
    gainValue.setBounds (lower.removeFromRight (64));
    gain.setBounds (lower.reduced (kGap / 2, 0));

    area.removeFromTop (kGap);
    status.setBounds (area.removeFromTop (kTextHeight));
}

void JudgePanel::perform (Kind kind)
{
    judge.perform ({ kind });
    refresh();
}

void JudgePanel::refresh()
{
    const auto view = judge.getView();
    const auto& faces = getFaces (view);

    for (std::size_t place = 0; place < buttons.size(); ++place)
    {
        auto& button = buttons[place];
        const auto kind = faces[place].kind;
        button.setVisible (kind.has_value());
        button.setButtonText (faces[place].text);
        button.setEnabled (kind.has_value() && judge.canPerform (*kind));
    }

    buttons[first].setToggleState (judge.isFirstLit(), juce::dontSendNotification);
    buttons[second].setToggleState (! judge.isFirstLit(), juce::dontSendNotification);

    for (auto* part : std::initializer_list<juce::Component*> { &gain, &gainName, &gainValue })
        part->setVisible (view == View::normal);

    for (auto* part : { &result, &counts })
        part->setVisible (view == View::results);

    if (! gain.isMouseButtonDown())
        gain.setValue (graph.getGain(), juce::dontSendNotification);

    gainValue.setText (describeGain (graph.getGain()), juce::dontSendNotification);

    const auto votes = judge.getVotes();
    const auto share = juce::String (votes.percentA > votes.percentB ? votes.percentA : votes.percentB) + " %";
    result.setText (votes.votes > 0 ? share : "-", juce::dontSendNotification);
    counts.setText ("A " + juce::String (votes.votesForA) + "  :  " + juce::String (votes.votesForB) + " B",
                    juce::dontSendNotification);
    status.setText (describeState(), juce::dontSendNotification);
    repaint();
}

juce::String JudgePanel::describeState() const
{
    const auto votes = judge.getVotes().votes;

    switch (judge.getView())
    {
        case View::normal:
            return judge.isFirstLit() ? "Listening to A" : "Listening to B";
        case View::test:
            return "Blind test, " + juce::String (votes) + (votes == 1 ? " vote" : " votes") +
                   ": choose the one you prefer";
        case View::results:
            return (votes == 0 ? juce::String ("No votes") : judge.describeVotes()) +
                   (judge.isFirstLit() ? ". Listening to A" : ". Listening to B");
    }

    return {};
}

}   // namespace desk
