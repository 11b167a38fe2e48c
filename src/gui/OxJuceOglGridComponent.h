// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxJuceGridComponent.h"
#include "gui/OxOglChildComponent.h"

/** A grid on the surface: draws its background, then the extra components, then, as children, the main ones.

    What changes the structure holds back the frames for its whole length; a component that it has taken out may be deleted at
    once. A layout that a resize starts only writes bounds, and runs beside the drawing. A component that becomes part of the
    grid gets the grid's editor if the grid has one. What stands below the background stays there while it is drawn. */
class OxJuceOglGridComponent : public OxOglChildComponent, public OxJuceGridComponent
{
public:
    explicit OxJuceOglGridComponent (const juce::String& gridName = {});

    // OxJuceGridComponent
    bool insertRow (int index) override;
    bool insertColumn (int index) override;
    bool removeRow (int index) override;
    bool removeColumn (int index) override;
    bool setCellComponent (int column, int row, juce::Component* component) override;
    bool setCellExtraComponent (int column, int row, juce::Component* component, bool owned, bool visible) override;
    void setBackgroundComponent (juce::Component* component, bool owned, bool visible) override;
    bool setCellSpan (int column, int row, int columns, int rows) override;
    bool resetCellSpans (int column, int row, int columns, int rows) override;

    // OxOglChildComponent
    void draw (int elapsedMs) override;
    const char* getTypeName() const override { return "OxJuceOglGridComponent"; }

private:
    void giveEditor (juce::Component* component);
    void drawBehind (juce::Component& component, bool withChildren, int elapsedMs);
};
