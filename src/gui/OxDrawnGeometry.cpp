// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxDrawnGeometry.h"

OxDrawnGeometry::OxDrawnGeometry (juce::Component& watched) : component (watched)
{
    componentMovedOrResized (component, true, true);
    componentVisibilityChanged (component);
    component.addComponentListener (this);
}

OxDrawnGeometry::~OxDrawnGeometry()
{
    component.removeComponentListener (this);
}

void OxDrawnGeometry::componentMovedOrResized (juce::Component&, bool, bool)
{
    x = component.getX();
    y = component.getY();
    width = component.getWidth();
    height = component.getHeight();
}

void OxDrawnGeometry::componentVisibilityChanged (juce::Component&)
{
    visible = component.isVisible();
}
