// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxDrawnState.h"

OxDrawnState::OxDrawnState (juce::Component& watched) : component (watched)
{
    componentMovedOrResized (component, true, true);
    componentVisibilityChanged (component);
    updateEnablement();
    component.addComponentListener (this);
}

OxDrawnState::~OxDrawnState()
{
    component.removeComponentListener (this);
}

void OxDrawnState::componentMovedOrResized (juce::Component&, bool, bool)
{
    x = component.getX();
    y = component.getY();
    width = component.getWidth();
    height = component.getHeight();
}

void OxDrawnState::componentVisibilityChanged (juce::Component&)
{
    visible = component.isVisible();
}

void OxDrawnState::updateEnablement()
{
    enabled = component.isEnabled();
}
