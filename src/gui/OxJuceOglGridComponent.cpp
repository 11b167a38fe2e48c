// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxJuceOglGridComponent.h"

#include "gui/OxJuceEditorBase.h"

using namespace juce::gl;

OxJuceOglGridComponent::OxJuceOglGridComponent (const juce::String& gridName) : OxOglChildComponent (gridName)
{
}

bool OxJuceOglGridComponent::insertRow (int index)
{
    const ScopedChange change (*this);
    return OxJuceGridComponent::insertRow (index);
}

bool OxJuceOglGridComponent::insertColumn (int index)
{
    const ScopedChange change (*this);
    return OxJuceGridComponent::insertColumn (index);
}

bool OxJuceOglGridComponent::removeRow (int index)
{
    const ScopedChange change (*this);
    return OxJuceGridComponent::removeRow (index);
}

bool OxJuceOglGridComponent::removeColumn (int index)
{
    const ScopedChange change (*this);
    return OxJuceGridComponent::removeColumn (index);
}

bool OxJuceOglGridComponent::setCellComponent (int column, int row, juce::Component* component)
{
    const ScopedChange change (*this);

    if (! OxJuceGridComponent::setCellComponent (column, row, component))
        return false;

    giveEditor (component);
    return true;
}

bool OxJuceOglGridComponent::setCellExtraComponent (int column, int row, juce::Component* component, bool owned,
                                                    bool visible)
{
    const ScopedChange change (*this);

    if (! OxJuceGridComponent::setCellExtraComponent (column, row, component, owned, visible))
        return false;

    giveEditor (component);
    return true;
}

void OxJuceOglGridComponent::setBackgroundComponent (juce::Component* component, bool owned, bool visible)
{
    const ScopedChange change (*this);
    OxJuceGridComponent::setBackgroundComponent (component, owned, visible);

    if (backgroundComponent == component)
        giveEditor (component);
}

bool OxJuceOglGridComponent::setCellSpan (int column, int row, int columns, int rows)
{
    const ScopedChange change (*this);
    return OxJuceGridComponent::setCellSpan (column, row, columns, rows);
}

bool OxJuceOglGridComponent::resetCellSpans (int column, int row, int columns, int rows)
{
    const ScopedChange change (*this);
    return OxJuceGridComponent::resetCellSpans (column, row, columns, rows);
}

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

    if (auto* const background = backgroundComponent.getComponent())
        drawBehind (*background, true, elapsedMs);

    for (const auto& row : cells)
        for (const auto& cell : row)
            if (auto* const extra = cell.extra.getComponent())
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
        element->draw (elapsedMs);

    if (withChildren)
        for (auto* const child : component.getChildren())
            drawBehind (*child, true, elapsedMs);

    glPopMatrix();
    surface.get()->resetGlState();
}
