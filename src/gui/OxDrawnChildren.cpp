// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxDrawnChildren.h"

#include "gui/OxOglChildComponent.h"

void OxDrawnChildren::update (const juce::Component& parent)
{
    std::vector<OxOglChildComponent*> drawn;

    for (auto* const child : parent.getChildren())
        if (auto* const element = dynamic_cast<OxOglChildComponent*> (child))
            drawn.push_back (element);

    const juce::ScopedLock scope (lock);
    children.swap (drawn);
}

void OxDrawnChildren::renderAll (int elapsedMs)
{
    const juce::ScopedLock scope (lock);

    for (auto* const child : children)
        child->renderAll (elapsedMs);
}
