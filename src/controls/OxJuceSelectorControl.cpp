// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceSelectorControl.h"

#include "gui/OxJuceEditorBase.h"

namespace
{

constexpr int kRowSpacing = 2;      // pixels between the lines of the list
constexpr int kBottomMargin = 10;   // pixels that a list downward leaves free in the editor
constexpr float kDisabledAlpha = 0.5f;
const juce::Colour kShade (0x64000000);   // over the editor while the list is open

/** Takes a child out of the surface before it dies. */
void takeOutOfParent (juce::Component& child)
{
    if (auto* const parent = child.getParentComponent())
        parent->removeChildComponent (&child);
}

}   // namespace

OxJuceSelectorControl::OxJuceSelectorControl (const juce::String& nameOfControl) :
    OxJuceControlWithHelpers (nameOfControl), m_btnPopupBackground (nameOfControl + ".m_btnPopupBackground"),
    m_Popup (nameOfControl + ".m_Popup")
{
}

OxJuceSelectorControl::~OxJuceSelectorControl()
{
    takeOutOfParent (m_Popup);
    takeOutOfParent (m_btnPopupBackground);
}

// The items -----------------------------------------------------------------------------------------------------------

void OxJuceSelectorControl::setItems (const juce::StringArray& list)
{
    if (list != items)
    {
        juce::StringArray newItems (list);
        juce::Array<juce::Colour> newColours;
        juce::Array<bool> newDisabled;
        newColours.insertMultiple (0, getTextColour(), list.size());
        newDisabled.insertMultiple (0, false, list.size());

        {
            const ScopedChange change (*this);
            items.swapWith (newItems);
            itemColours.swapWith (newColours);
            rowDisabled.swapWith (newDisabled);
        }
        repaint();
    }

    refresh();
}

void OxJuceSelectorControl::disableFirstRow()
{
    if (isRowDisabled (0))
        return;

    const ScopedChange change (*this);
    rowDisabled.set (0, true);
}

// The list ------------------------------------------------------------------------------------------------------------

void OxJuceSelectorControl::mouseDown (const juce::MouseEvent&)
{
    if (takesMouse() && ! isOpen())
        open();
}

void OxJuceSelectorControl::open()
{
    auto* const owner = editor.get();

    if (owner == nullptr)
        return;

    const juce::WeakReference<juce::Component> self (this);
    beginChange();

    if (self == nullptr || ! isChanging() || editor != owner)
        return;   // a listener has thought otherwise

    m_btnPopupBackground.setBounds (owner->getLocalBounds());
    m_btnPopupBackground.addListener (this);
    m_btnPopupBackground.setStateFill (kShade, OxJuceButton::kAllStates);
    owner->addControl (m_btnPopupBackground);

    const auto* const sheet = getFont();
    const auto rowHeight = (sheet != nullptr ? sheet->getHeight() : 0) + kRowSpacing;
    m_Popup.open (*this, getListBounds (rowHeight), rowHeight);
    m_Popup.addListener (this);
    owner->addControl (m_Popup);
}

juce::Rectangle<int> OxJuceSelectorControl::getListBounds (int rowHeight) const
{
    const auto& owner = *editor.get();
    const auto box = owner.getLocalArea (this, getLocalBounds());
    const auto height = items.size() * rowHeight;
    const auto hasRoomBelow = box.getBottom() + height <= owner.getBottom() - kBottomMargin;
    return { box.getX(), box.getBottom() - (hasRoomBelow ? 0 : height), getWidth(), height };
}

void OxJuceSelectorControl::abortChange()
{
    m_btnPopupBackground.setVisible (false);
    m_Popup.setVisible (false);
    OxJuceControlWithHelpers::abortChange();
}

void OxJuceSelectorControl::controlValueChanged (OxJuceControl& control)
{
    if (&control == &m_Popup && m_Popup.getValue() == 1.0f)
    {
        const juce::WeakReference<juce::Component> self (this);
        setValue (thousandths::fromCode (m_Popup.getHoverRow()), true);

        if (self != nullptr)
            abortChange();
    }
    else if (&control == &m_btnPopupBackground)
        abortChange();
}

// The picture ---------------------------------------------------------------------------------------------------------

juce::Colour OxJuceSelectorControl::getBoxColour() const
{
    return isDrawnEnabled() ? fillColour.get() : fillColour.get().withMultipliedAlpha (kDisabledAlpha);
}

void OxJuceSelectorControl::draw (int)
{
    auto* const target = surface.get();
    const auto area = getDrawnLocalBounds();

    if (target == nullptr || area.isEmpty())
        return;

    target->glState.pending.texturing = false;
    target->glState.pending.colour = getBoxColour();
    drawFilledRect (area);
    drawLabel (getSelectedText(), nullptr);
    drawBackground();
}

void OxJuceSelectorControl::paint (juce::Graphics& graphics)
{
    graphics.setColour (getBoxColour());
    graphics.fillRect (getLocalBounds());
    paintLabel (graphics, getSelectedText(), nullptr);

    if (showsBackground)
    {
        graphics.setColour (backgroundColour.get().withAlpha (getOpacity()));
        graphics.fillRect (getLocalBounds());
    }
}
