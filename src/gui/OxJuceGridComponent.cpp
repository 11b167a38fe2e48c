// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxJuceGridComponent.h"

#include <utility>

OxJuceGridComponent::OxJuceGridComponent()
{
    addComponentListener (this);
}

OxJuceGridComponent::~OxJuceGridComponent()
{
    removeComponentListener (this);

    for (auto& row : cells)
        for (auto& cell : row)
            empty (cell);

    releaseBackground();
}

void OxJuceGridComponent::componentMovedOrResized (juce::Component& component, bool, bool)
{
    if (&component == this)
        changed();
}

// The whole grid ------------------------------------------------------------------------------------------------------

template <typename Value>
void OxJuceGridComponent::store (Value& setting, Value value)
{
    if (std::exchange (setting, value) != value)
        changed();
}

void OxJuceGridComponent::setDefaultAlignment (int alignment)
{
    store (defaultAlignment, alignment);
}

void OxJuceGridComponent::setGaps (int column, int row)
{
    store (columnGap, column);
    store (rowGap, row);
}

void OxJuceGridComponent::setModes (int column, int row)
{
    store (columnMode, column);
    store (rowMode, row);
}

void OxJuceGridComponent::setAutoLayout (bool on)
{
    if (! std::exchange (autoLayout, on) && on)
        layOut();
}

void OxJuceGridComponent::changed()
{
    dirty = true;

    if (autoLayout)
        layOut();
}

// Cells ---------------------------------------------------------------------------------------------------------------

bool OxJuceGridComponent::setCellComponent (int column, int row, juce::Component* component)
{
    if (! hasCell (column, row) || ! accepts (component))
        return false;

    takeFromGrid (component);

    if (component != nullptr && cellAt (column, row).main == component)
        return true;

    releaseMain (cellAt (column, row).main);

    if (component == nullptr)
        return true;

    cellAt (column, row).main = component;
    addAndMakeVisible (component);
    changed();
    return true;
}

juce::Component* OxJuceGridComponent::getCellComponent (int column, int row) const
{
    return hasCell (column, row) ? cellAt (column, row).main.getComponent() : nullptr;
}

bool OxJuceGridComponent::setCellExtraComponent (int column, int row, juce::Component* component, bool owned,
                                                 bool visible)
{
    if (! hasCell (column, row) || ! accepts (component))
        return false;

    auto& cell = cellAt (column, row);
    const auto isOther = cell.extra != component;

    if (isOther)
        releaseExtra (cell);

    cell.extraOwned = owned;

    if (component == nullptr)
        return true;

    takeFromParent (component);
    component->setVisible (visible);
    cell.extra = component;

    if (isOther)
        changed();

    return true;
}

void OxJuceGridComponent::setBackgroundComponent (juce::Component* component, bool owned, bool visible)
{
    if (! accepts (component))
        return;

    const auto isOther = backgroundComponent != component;

    if (isOther)
        releaseBackground();

    backgroundOwned = owned;

    if (component == nullptr)
        return;

    takeFromParent (component);
    component->setVisible (visible);
    backgroundComponent = component;

    if (isOther)
        changed();
}

bool OxJuceGridComponent::setCellSpan (int column, int row, int columns, int rows)
{
    if (! hasArea (column, row, columns, rows))
        return false;

    auto& cell = cellAt (column, row);
    const auto before = std::pair (std::exchange (cell.columnSpan, columns), std::exchange (cell.rowSpan, rows));

    if (before != std::pair (columns, rows))
        changed();

    return true;
}

bool OxJuceGridComponent::resetCellSpans (int column, int row, int columns, int rows)
{
    if (! hasArea (column, row, columns, rows))
        return false;

    auto anySpan = false;

    for (int y = row; y < row + rows; ++y)
    {
        for (int x = column; x < column + columns; ++x)
        {
            auto& cell = cellAt (x, y);
            anySpan |= std::exchange (cell.columnSpan, 1) != 1;
            anySpan |= std::exchange (cell.rowSpan, 1) != 1;
        }
    }

    if (anySpan)
        changed();

    return true;
}

bool OxJuceGridComponent::setCellAlignment (int column, int row, int alignment)
{
    if (! hasCell (column, row))
        return false;

    store (cellAt (column, row).alignment, alignment);
    return true;
}

juce::Rectangle<int> OxJuceGridComponent::getCellRect (int column, int row) const
{
    return hasCell (column, row) ? cellAt (column, row).cellRect : juce::Rectangle<int>();
}

OxJuceGridComponent::Cell& OxJuceGridComponent::cellAt (int column, int row)
{
    return cells[static_cast<std::size_t> (row)][static_cast<std::size_t> (column)];
}

const OxJuceGridComponent::Cell& OxJuceGridComponent::cellAt (int column, int row) const
{
    return cells[static_cast<std::size_t> (row)][static_cast<std::size_t> (column)];
}

bool OxJuceGridComponent::hasCell (int column, int row) const noexcept
{
    return juce::isPositiveAndBelow (column, getNumColumns()) && juce::isPositiveAndBelow (row, getNumRows());
}

bool OxJuceGridComponent::hasArea (int column, int row, int columns, int rows) const noexcept
{
    return hasCell (column, row) && columns > 0 && rows > 0 && columns <= getNumColumns() - column &&
           rows <= getNumRows() - row;
}

bool OxJuceGridComponent::accepts (const juce::Component* component) const
{
    return component == nullptr || (component != this && ! component->isParentOf (this));
}

// Letting go ----------------------------------------------------------------------------------------------------------

void OxJuceGridComponent::takeFromGrid (juce::Component* component)
{
    auto* const grid =
        component != nullptr ? dynamic_cast<OxJuceGridComponent*> (component->getParentComponent()) : nullptr;

    if (grid == nullptr)
        return;

    for (int row = 0; row < grid->getNumRows(); ++row)
    {
        for (int column = 0; column < grid->getNumColumns(); ++column)
        {
            if (grid->cellAt (column, row).main != component)
                continue;

            const juce::ScopedValueSetter<bool> moving (grid->ownsComponents, false);
            grid->setCellComponent (column, row, nullptr);
            return;
        }
    }
}

void OxJuceGridComponent::takeFromParent (juce::Component* component)
{
    takeFromGrid (component);

    if (auto* const parent = component != nullptr ? component->getParentComponent() : nullptr)
        parent->removeChildComponent (component);
}

void OxJuceGridComponent::empty (Cell& cell)
{
    releaseMain (cell.main);
    releaseExtra (cell);
}

void OxJuceGridComponent::releaseMain (ComponentPointer& main)
{
    auto* const component = std::exchange (main, {}).getComponent();
    removeChildComponent (component);

    if (ownsComponents)
        delete component;
}

void OxJuceGridComponent::releaseExtra (Cell& cell)
{
    auto* const component = std::exchange (cell.extra, {}).getComponent();

    if (std::exchange (cell.extraOwned, false))
        delete component;
}

void OxJuceGridComponent::releaseBackground()
{
    auto* const component = std::exchange (backgroundComponent, {}).getComponent();

    if (std::exchange (backgroundOwned, false))
        delete component;
}
