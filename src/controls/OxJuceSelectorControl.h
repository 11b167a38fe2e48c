// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceButton.h"
#include "controls/OxJuceSelectorPopUp.h"

/** Chooses one of several texts. A flat box shows the choice; a click on it unrolls them all, on top of the editor, and one
    beside them rolls them up again.

    The value is the chosen row in thousandths, and may point past the end, which shows nothing. From opening to closing is
    one gesture. The list closes too when the selector is locked, disabled or goes out of view. */
class OxJuceSelectorControl : public OxJuceControlWithHelpers, public OxJuceControl::Listener
{
public:
    explicit OxJuceSelectorControl (const juce::String& nameOfControl);
    ~OxJuceSelectorControl() override;

    /** Replaces the items, all enabled, in the text colour of this moment. The same list again costs one comparison. */
    void setItems (const juce::StringArray& list);

    /** Leaves the first row in the list, darker, and takes no click on it. */
    void disableFirstRow();

    bool isOpen() const { return m_Popup.isVisible(); }

    // What a frame reads too [message thread, or render thread within a frame] ----------------------------------------

    int getSelectedIndex() const noexcept { return getCode(); }
    const juce::String& getSelectedText() const { return items[getSelectedIndex()]; }
    const juce::StringArray& getItems() const noexcept { return items; }
    juce::Colour getItemColour (int index) const { return itemColours[index]; }
    bool isRowDisabled (int index) const { return rowDisabled[index]; }

    // OxJuceControl
    void abortChange() override;

    // OxOglChildComponent
    void draw (int elapsedMs) override;
    const char* getTypeName() const override { return "OxJuceSelectorControl"; }

    // juce::Component
    void paint (juce::Graphics& graphics) override;
    void mouseDown (const juce::MouseEvent& event) override;

    // OxJuceControl::Listener, of its own list and the button behind it
    void controlValueChanged (OxJuceControl& control) override;

private:
    void open();
    juce::Rectangle<int> getListBounds (int rowHeight) const;
    juce::Colour getBoxColour() const;

    juce::StringArray items;                 // these three change while no frame is drawn
    juce::Array<juce::Colour> itemColours;   // one an item
    juce::Array<bool> rowDisabled;           // by row; those that it does not reach are enabled
    OxJuceButton m_btnPopupBackground;       // covers the editor while the list is open
    OxJuceSelectorPopUp m_Popup;
};
