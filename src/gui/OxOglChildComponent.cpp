// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxOglChildComponent.h"

#include "gui/OxJuceEditorBase.h"

using namespace juce::gl;

OxOglChildComponent::OxOglChildComponent (const juce::String& nameOfComponent)
{
    setName (nameOfComponent);
}

OxOglChildComponent::~OxOglChildComponent()
{
    leaveParent();
}

void OxOglChildComponent::draw (int)
{
}

void OxOglChildComponent::renderAll (int elapsedMs)
{
    auto* const target = surface.get();

    if (target == nullptr)
        return;

    target->resetGlState();
    const auto position = getDrawnBounds().getPosition().toFloat();
    glPushMatrix();
    glTranslatef (position.x, position.y, 0.0f);

    if (isDrawn())
    {
        draw (elapsedMs);
        drawnChildren.renderAll (elapsedMs);
    }

    glPopMatrix();
}

void OxOglChildComponent::childrenChanged()
{
    drawnChildren.update (*this);
}

void OxOglChildComponent::parentHierarchyChanged()
{
    if (getParentComponent() == nullptr)
        leaveParent();

    drawnState.updateEnablement();
}

void OxOglChildComponent::enablementChanged()
{
    drawnState.updateEnablement();
}

void OxOglChildComponent::leaveParent()
{
    if (drawnIn != nullptr)
        drawnIn->remove (*this);
}
