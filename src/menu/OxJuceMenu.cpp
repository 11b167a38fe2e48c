// SPDX-License-Identifier: GPL-3.0-or-later
#include "menu/OxJuceMenu.h"

#include "gui/OxJuceEditorBase.h"
#include "menu/OxJuceMenuScreens.h"

namespace
{

constexpr int kAll = OxJuceButton::kAllStates;
constexpr int kTopMargin = 15, kBottomMargin = 5, kSideMargins = 40;   // pixels, of the panel
constexpr int kLineSpacing = 3, kLine = OxJuceMenu::kTextHeight + kLineSpacing;
constexpr int kButtonHeight = 17, kButtonPadding = 10;
constexpr int kSwitchWidth = 30, kSwitchIndent = 35, kOptionGap = 5, kAboveOptions = 10;
const juce::Colour kTextColour (0xffc8c8c8), kButtonOff (0x64ff8040), kButtonOn (0xffff8040), kListBox (0xff323232);
const juce::Identifier kItemIndex ("menu_item");

void makePressable (OxJuceButton& item)
{
    item.setStateFill (kButtonOff, 0);
    item.setStateFill (kButtonOn, 1);
    item.setInterceptsMouseClicks (true, true);
}

}   // namespace

OxJuceMenu::OxJuceMenu (OxJuceEditorBase& owner) : editor (owner)
{
    for (int index = 0; index < kNumItems; ++index)
    {
        auto& item = items[static_cast<std::size_t> (index)];
        item = std::make_unique<OxJuceButton> ("Menu item " + juce::String (index));
        item->getProperties().set (kItemIndex, index);
        item->addListener (this);   // before the editor, and so told after it: the menu may give the item another duty
    }
}

void OxJuceMenu::setOpen (bool shouldBeOpen)
{
    if (shouldBeOpen == wantOpen)
        return;

    wantOpen = shouldBeOpen;

    if (wantOpen)
    {
        modalBackground.setEditor (&editor);
        editor.addControl (modalBackground.backgroundButton);
        editor.addControl (modalBackground.panelButton);
        showScreen (std::make_unique<OxJuceMenuScreenMainMenu>());
    }
    else
    {
        modalBackground.backgroundButton.setVisible (false);
        modalBackground.panelButton.setVisible (false);
        clear();
    }
}

// Screens -------------------------------------------------------------------------------------------------------------

void OxJuceMenu::showScreen (std::unique_ptr<OxJuceMenuScreen> screen)
{
    if (screen == nullptr)
        return;

    nextScreen = std::move (screen);

    while (const auto current = std::move (nextScreen))
    {
        clear();
        cursorY = modalBackground.panelButton.getY() + kTopMargin;
        current->show (*this);
        fitToPanel();
    }
}

void OxJuceMenu::clear()
{
    for (auto& item : items)
    {
        if (item->getParentComponent() == nullptr)
            continue;

        item->setVisible (false);
        item->attach (kNoParam, &editor);
        item->setValue (0.0f, false);
    }

    for (auto& target : itemTargets)
        target.reset();

    for (auto& selector : selectors)
    {
        selector->setVisible (false);
        editor.surface.removeChildComponent (selector.get());
    }

    selectors.clear();
    itemCount = 0;
}

void OxJuceMenu::fitToPanel()
{
    const auto bottom = modalBackground.panelButton.getBottom();

    if (cursorY <= bottom)
        return;

    const auto scale = static_cast<float> (bottom - kBottomMargin) / static_cast<float> (cursorY);
    const auto move = [scale] (juce::Component& line)
    { line.setTopLeftPosition (line.getX(), static_cast<int> (static_cast<float> (line.getY()) * scale)); };

    for (int index = 0; index < itemCount; ++index)
        move (*items[static_cast<std::size_t> (index)]);

    for (auto& selector : selectors)
        move (*selector);
}

void OxJuceMenu::controlValueChanged (OxJuceControl& control)
{
    const int index = control.getProperties()[kItemIndex];
    showScreen (std::move (itemTargets[static_cast<std::size_t> (index)]));
}

// Building blocks -----------------------------------------------------------------------------------------------------

OxJuceButton& OxJuceMenu::addItem (const juce::String& text, juce::Rectangle<int> bounds)
{
    itemCount = std::min (itemCount + 1, kNumItems);   // one line too many takes the place of the last
    auto& item = *items[static_cast<std::size_t> (itemCount - 1)];
    item.attach (kNoParam, &editor);
    item.momentary = false;
    item.setStateFill (juce::Colours::transparentBlack, kAll);
    item.setTextColour (kTextColour, kAll);
    item.setFont (editor.surface.getFont (11));
    item.setJustification (TextJustification::centre);
    item.setLabel (text, kAll);
    item.setInterceptsMouseClicks (false, false);   // a label keeps no click from a button that it overlaps
    item.setBounds (bounds);
    editor.addControl (item);
    return item;
}

OxJuceButton& OxJuceMenu::addText (const juce::String& text, int height)
{
    const auto width = getColumnWidth();
    auto& item = addItem (text, { getCentreX() - width / 2, cursorY, width, height });
    cursorY += height + kLineSpacing;
    return item;
}

void OxJuceMenu::addHeading (const juce::String& text)
{
    addText (text, kTextHeight).setFont (editor.surface.getFont (14));
}

void OxJuceMenu::addWrappedText (const juce::String& text)
{
    if (const auto lines = juce::StringArray::fromLines (text); lines.size() > 1)
    {
        for (const auto& line : lines)
            addWrappedText (line);

        return;
    }

    const auto width = std::min (editor.getWidth(), modalBackground.panelButton.getWidth()) - kSideMargins;
    juce::String line (text);

    if (measure (text) > width)
    {
        line.clear();

        for (const auto& word : juce::StringArray::fromTokens (text, true))
        {
            const auto longer = line.isEmpty() ? word : line + " " + word;

            if (line.isNotEmpty() && measure (longer) > width)
                addText (std::exchange (line, word), kTextHeight);
            else
                line = longer;
        }
    }

    addText (line, kTextHeight);
}

OxJuceButton& OxJuceMenu::addButton (const juce::String& text)
{
    auto& item = addText (text, kButtonHeight);
    const auto width = measure (text) + kButtonPadding;
    item.setBounds (item.getBounds().withX (getCentreX() - width / 2).withWidth (width));
    item.momentary = true;
    makePressable (item);
    return item;
}

void OxJuceMenu::addMenuItem (const juce::String& text, std::unique_ptr<OxJuceMenuScreen> target)
{
    const int index = addButton (text).getProperties()[kItemIndex];
    itemTargets[static_cast<std::size_t> (index)] = std::move (target);
}

void OxJuceMenu::addRowLabel (const juce::String& text, int x, int width)
{
    addItem (text, { x, cursorY, width, kTextHeight }).setJustification (TextJustification::right);
}

void OxJuceMenu::addOptionSwitch (const juce::String& label, int parameterId, OptionPlace place)
{
    const auto centre = getCentreX(), half = getColumnWidth() / 2;
    auto switchX = centre;

    if (place == OptionPlace::rightHalf)
    {
        const auto width = measure (label);
        cursorY -= kLine;
        addRowLabel (label, centre + kOptionGap, width);
        switchX = centre + width + kOptionGap;
    }
    else
    {
        if (place == OptionPlace::leftHalf)
        {
            cursorY += kAboveOptions;
            switchX -= kSwitchIndent;
        }

        addRowLabel (label, switchX - half, half - kOptionGap);
    }

    auto& item = addItem ("Off", { switchX, cursorY, kSwitchWidth, kTextHeight });
    item.setLabel ("On", 1);
    item.setTextColour (juce::Colours::black, 1);   // on a bright fill
    makePressable (item);
    item.attach (parameterId, &editor);
    cursorY += kLine;
}

void OxJuceMenu::addOptionSelector (const juce::String& label, const juce::StringArray& choices, int parameterId)
{
    const auto centre = getCentreX(), half = getColumnWidth() / 2;
    addRowLabel (label, centre - half, half - kOptionGap);

    auto& selector = *selectors.emplace_back (std::make_unique<OxJuceSelectorControl> (label));
    selector.setTextColour (juce::Colours::white);
    selector.setFont (editor.surface.getFont (11));
    selector.setJustification (TextJustification::left);   // a longer text leaves the label alone
    selector.setFillColour (kListBox);
    selector.setItems (choices);
    selector.attach (parameterId, &editor);
    selector.setBounds (centre, cursorY, kSwitchWidth, kTextHeight);
    editor.addControl (selector);
    cursorY += kLine;
}

int OxJuceMenu::getCentreX() const
{
    return editor.getX() + editor.getWidth() / 2;
}

int OxJuceMenu::getColumnWidth() const
{
    return std::min (columnWidth, editor.getWidth());
}

int OxJuceMenu::measure (const juce::String& text) const
{
    return editor.surface.getFont (11)->measure (text);
}
