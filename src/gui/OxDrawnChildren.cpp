// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxDrawnChildren.h"

#include "gui/OxOglChildComponent.h"

OxDrawnChildren::~OxDrawnChildren()
{
    replace ({});
}

void OxDrawnChildren::update (const juce::Component& parent)
{
    std::vector<OxOglChildComponent*> drawn;

    for (auto* const child : parent.getChildren())
        if (auto* const element = dynamic_cast<OxOglChildComponent*> (child))
            drawn.push_back (element);

    replace (std::move (drawn));
}

void OxDrawnChildren::remove (OxOglChildComponent& child)
{
    auto others = children;
    others.erase (std::remove (others.begin(), others.end(), &child), others.end());
    replace (std::move (others));
}

void OxDrawnChildren::replace (std::vector<OxOglChildComponent*> newChildren)
{
    for (auto* const child : children)
        child->drawnIn = nullptr;

    for (auto* const child : newChildren)
        child->drawnIn = this;

    const juce::ScopedLock scope (lock);
    children.swap (newChildren);
}

void OxDrawnChildren::renderAll (int elapsedMs)
{
    const juce::ScopedLock scope (lock);

    for (auto* const child : children)
        child->renderAll (elapsedMs);
}
