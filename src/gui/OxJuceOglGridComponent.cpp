// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxJuceOglGridComponent.h"

#include "gui/OxJuceEditorBase.h"

using namespace juce::gl;

OxJuceOglGridComponent::OxJuceOglGridComponent (const juce::String& gridName) : OxOglChildComponent (gridName)
{
}

bool OxJuceOglGridComponent::insertRow (int index)
{
    const juce::ScopedLock scope (gridLock);
    return OxJuceGridComponent::insertRow (index);
}

bool OxJuceOglGridComponent::insertColumn (int index)
{
    const juce::ScopedLock scope (gridLock);
    return OxJuceGridComponent::insertColumn (index);
}

bool OxJuceOglGridComponent::removeRow (int index)
{
    const juce::ScopedLock scope (gridLock);
    return OxJuceGridComponent::removeRow (index);
}

bool OxJuceOglGridComponent::removeColumn (int index)
{
    const juce::ScopedLock scope (gridLock);
    return OxJuceGridComponent::removeColumn (index);
}

// A component leaves another parent before the lock is taken: that parent may be drawing, and its drawing may come to this
// grid and wait for the lock.

bool OxJuceOglGridComponent::setCellComponent (int column, int row, juce::Component* component)
{
    if (! hasCell (column, row) || ! accepts (component))
        return false;

    if (component != nullptr && component->getParentComponent() != this && getCellComponent (column, row) != component)
        takeFromParent (component);

    {
        const juce::ScopedLock scope (gridLock);

        if (! OxJuceGridComponent::setCellComponent (column, row, component))
            return false;
    }

    giveEditor (component);
    return true;
}

bool OxJuceOglGridComponent::setCellExtraComponent (int column, int row, juce::Component* component, bool owned,
                                                    bool visible)
{
    if (! hasCell (column, row) || ! accepts (component))
        return false;

    takeFromParent (component);

    {
        const juce::ScopedLock scope (gridLock);

        if (! OxJuceGridComponent::setCellExtraComponent (column, row, component, owned, visible))
            return false;
    }

    giveEditor (component);
    return true;
}

void OxJuceOglGridComponent::setBackgroundComponent (juce::Component* component, bool owned, bool visible)
{
    if (! accepts (component))
        return;

    takeFromParent (component);

    {
        const juce::ScopedLock scope (gridLock);
        OxJuceGridComponent::setBackgroundComponent (component, owned, visible);
    }

    giveEditor (component);
}

bool OxJuceOglGridComponent::setCellSpan (int column, int row, int columns, int rows)
{
    const juce::ScopedLock scope (gridLock);
    return OxJuceGridComponent::setCellSpan (column, row, columns, rows);
}

bool OxJuceOglGridComponent::resetCellSpans (int column, int row, int columns, int rows)
{
    const juce::ScopedLock scope (gridLock);
    return OxJuceGridComponent::resetCellSpans (column, row, columns, rows);
}

/** Without the lock, since the component may wait for its own drawing. */
void OxJuceOglGridComponent::giveEditor (juce::Component* component)
{
    auto* const element = dynamic_cast<OxOglChildComponent*> (component);

    if (element != nullptr && editor.get() != nullptr)
        element->setOglComponent (editor);
}

void OxJuceOglGridComponent::draw (int elapsedMs)
{
    if (surface.get() == nullptr)
        return;

    const juce::ScopedLock scope (gridLock);
    advanceMoves();

    if (auto* const background = backgroundComponent.getComponent())
        drawBehind (*background, true, elapsedMs);

    for (const auto& row : cells)
        for (const auto& cell : row)
            if (auto* const extra = cell.extra.component.getComponent())
                drawBehind (*extra, false, elapsedMs);
}

void OxJuceOglGridComponent::drawBehind (juce::Component& component, bool withChildren, int elapsedMs)
{
    auto* const element = dynamic_cast<OxOglChildComponent*> (&component);

    if (element != nullptr ? ! element->isDrawn() : ! (withChildren && component.isVisible()))
        return;

    const auto position =
        (element != nullptr ? element->getDrawnBounds() : component.getBounds()).getPosition().toFloat();
    glPushMatrix();
    glTranslatef (position.x, position.y, 0.0f);

    if (element != nullptr)
    {
        const ScopedDrawing drawingElement (*element);
        element->draw (elapsedMs);
    }

    if (withChildren)
        for (auto* const child : component.getChildren())
            drawBehind (*child, true, elapsedMs);

    glPopMatrix();
    surface.get()->resetGlState();
}
