// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxDrawnChildren.h"

#include "gui/OxOglChildComponent.h"

OxDrawnChildren::~OxDrawnChildren()
{
    for (auto* const child : children)
        child->drawnIn = nullptr;
}

void OxDrawnChildren::update (const juce::Component& parent)
{
    const OxOglComponentUser::ScopedChange change (owner);

    for (auto* const child : children)
        child->drawnIn = nullptr;

    children.clear();

    for (auto* const child : parent.getChildren())
    {
        if (auto* const element = dynamic_cast<OxOglChildComponent*> (child))
        {
            children.push_back (element);
            element->drawnIn = this;
        }
    }
}

void OxDrawnChildren::remove (OxOglChildComponent& child)
{
    const OxOglComponentUser::ScopedChange change (owner);
    children.erase (std::remove (children.begin(), children.end(), &child), children.end());
    child.drawnIn = nullptr;
}

void OxDrawnChildren::leaveSurface()
{
    for (auto* const child : children)
    {
        child->setOglComponent (nullptr);
        child->drawnChildren.leaveSurface();
    }
}

void OxDrawnChildren::renderAll (int elapsedMs)
{
    for (auto* const child : children)
        child->renderAll (elapsedMs);
}
