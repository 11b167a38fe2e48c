// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceControlWithHelpers.h"

class OxJuceSelectorControl;

/** The list that a selector opens: one row an item, on the surface of the editor. With no way to scroll, rows that fall
    outside the surface are not drawn.

    Its value is no selection. It goes to 1 with a click on a row that can be chosen, and the selector asks which. */
class OxJuceSelectorPopUp : public OxJuceControlWithHelpers
{
public:
    explicit OxJuceSelectorPopUp (const juce::String& nameOfControl);

    /** Takes the items and the looks of a selector, with no row under the pointer [message thread].
        @param owner outlives this list. @param area in the editor. @param heightOfRow pixels */
    void open (OxJuceSelectorControl& owner, juce::Rectangle<int> area, int heightOfRow);

    /** The row under the pointer, or the last one clicked; -1 for none. */
    int getHoverRow() const noexcept { return hoverRow; }

    // OxOglChildComponent
    void draw (int elapsedMs) override;
    const char* getTypeName() const override { return "OxJuceSelectorPopUp"; }

    // juce::Component
    void paint (juce::Graphics& graphics) override;
    void mouseMove (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;
    void mouseDown (const juce::MouseEvent& event) override;

    Relaxed<juce::Colour> selectedRowColour = juce::Colour (0xff545454);
    Relaxed<juce::Colour> hoverRowColour = juce::Colour (0xff727272);

private:
    template <typename Fill, typename Write>
    void forEachRow (juce::Rectangle<int> area, Fill&& fill, Write&& write) const;

    void hover (const juce::MouseEvent& event);

    Relaxed<int> rowHeight = 0;                  // pixels
    Relaxed<int> firstRow = 0, rowsInView = 0;   // at most, of those that lie within the surface
    Relaxed<int> hoverRow = -1;
    Relaxed<OxJuceSelectorControl*> selector = nullptr;   // of the last opening, null before any
};
