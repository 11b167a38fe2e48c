// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceSelectorPopUp.h"

#include "controls/OxJuceSelectorControl.h"
#include "gui/OxJuceEditorBase.h"

namespace
{

constexpr float kDisabledDarker = 0.4f;
const juce::Colour kListColour (0xf0404040);

}   // namespace

OxJuceSelectorPopUp::OxJuceSelectorPopUp (const juce::String& nameOfControl) : OxJuceControlWithHelpers (nameOfControl)
{
    setFillColour (kListColour);
}

void OxJuceSelectorPopUp::open (OxJuceSelectorControl& owner, juce::Rectangle<int> area, int heightOfRow)
{
    rowHeight = heightOfRow;
    hoverRow = -1;
    firstRow = std::max (0, -area.getY() / heightOfRow);
    rowsInView = owner.getSurface()->getHeight() / heightOfRow + 2;
    setBounds (area);
    setTextColour (owner.getTextColour());
    setFont (owner.getFont());
    setFillColour (kListColour);
    selector = &owner;
    setValue (0.0f, true);
}

// The picture ---------------------------------------------------------------------------------------------------------

template <typename Fill, typename Write>
void OxJuceSelectorPopUp::forEachRow (juce::Rectangle<int> area, Fill&& fill, Write&& write) const
{
    const auto* const owner = selector.get();

    if (owner == nullptr)
        return;

    const auto selectedRow = owner->getSelectedIndex();
    const auto end = std::min (owner->getItems().size(), firstRow + rowsInView);

    for (int index = firstRow; index < end; ++index)
    {
        const auto row = area.withHeight (rowHeight).translated (0, index * rowHeight);
        const auto isDisabled = owner->isRowDisabled (index);

        if (index == selectedRow)
            fill (row, selectedRowColour.get());

        if (index == hoverRow && ! isDisabled)
            fill (row, hoverRowColour.get());

        const auto colour = owner->getItemColour (index);
        write (row, owner->getItems()[index], isDisabled ? colour.darker (kDisabledDarker) : colour);
    }
}

void OxJuceSelectorPopUp::draw (int)
{
    auto* const target = surface.get();

    if (target == nullptr)
        return;

    const auto fill = [&] (juce::Rectangle<int> area, juce::Colour colour)
    {
        target->glState.pending.texturing = false;
        target->glState.pending.colour = colour;
        drawFilledRect (area);
    };
    const auto write = [&] (juce::Rectangle<int> row, const juce::String& text, juce::Colour colour)
    { drawText (row, text, colour); };

    const auto area = getDrawnLocalBounds();
    fill (area, fillColour);
    forEachRow (area, fill, write);
}

void OxJuceSelectorPopUp::paint (juce::Graphics& graphics)
{
    const auto fill = [&] (juce::Rectangle<int> area, juce::Colour colour)
    {
        graphics.setColour (colour);
        graphics.fillRect (area);
    };
    const auto* const sheet = getFont();
    graphics.setFont (static_cast<float> (sheet != nullptr ? sheet->getHeight() : 0) + 0.5f);
    const auto place =
        getJustification() == TextJustification::left ? juce::Justification::left : juce::Justification::centred;
    const auto write = [&] (juce::Rectangle<int> row, const juce::String& text, juce::Colour colour)
    {
        graphics.setColour (colour);
        graphics.drawText (text, row, place, false);
    };

    fill (getLocalBounds(), fillColour);
    forEachRow (getLocalBounds(), fill, write);
}

// The pointer ---------------------------------------------------------------------------------------------------------

void OxJuceSelectorPopUp::hover (const juce::MouseEvent& event)
{
    if (rowHeight > 0)
        hoverRow = event.y / rowHeight;
}

void OxJuceSelectorPopUp::mouseMove (const juce::MouseEvent& event)
{
    hover (event);
}

void OxJuceSelectorPopUp::mouseExit (const juce::MouseEvent& event)
{
    OxJuceControlWithHelpers::mouseExit (event);
    hoverRow = -1;
}

void OxJuceSelectorPopUp::mouseDown (const juce::MouseEvent& event)
{
    hover (event);

    if (const auto* const owner = selector.get(); owner == nullptr || ! owner->isRowDisabled (hoverRow))
        setValue (1.0f, true);
}
