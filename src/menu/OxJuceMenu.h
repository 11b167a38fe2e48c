// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceModalBackground.h"
#include "controls/OxJuceSelectorControl.h"
#include "menu/OxJuceMenuScreen.h"

/** The menu, which opens inside the window and has its screens one after the other.

    A screen is written downward with the building blocks below: each stands at `cursorY` and moves it on. Their controls
    are made once and lent, so that no change of the screen destroys what a frame may be drawing. Centred means
    in the middle of the editor. All on the message thread; while an editor lives, so does its menu. */
class OxJuceMenu : public OxJuceControl::Listener
{
public:
    static constexpr int kNumItems = 50;   // of all blocks of one screen
    static constexpr int kDefaultColumnWidth = 300;
    static constexpr int kTextHeight = 13, kGap = 19;   // pixels, of a line and between the parts of a screen

    enum class OptionPlace
    {
        leftHalf,
        rightHalf,   // of the line before
        ownLine
    };

    explicit OxJuceMenu (OxJuceEditorBase& owner);

    OxJuceEditorBase& getEditor() noexcept { return editor; }

    /** Opens on the main menu, or closes; the state that stands changes nothing. */
    void setOpen (bool shouldBeOpen);
    bool isOpen() const noexcept { return wantOpen; }

    /** Shows a screen, or the last of those that one after the other name a next one. Null changes nothing. */
    void showScreen (std::unique_ptr<OxJuceMenuScreen> screen);

    /** Called by a screen as it is built: that one is to be shown instead. */
    void setNextScreen (std::unique_ptr<OxJuceMenuScreen> screen) { nextScreen = std::move (screen); }

    template <typename Screen>
    void setNextScreen()
    {
        setNextScreen (std::make_unique<Screen>());
    }

    // Building blocks -------------------------------------------------------------------------------------------------

    /** A line of small type, centred. @param height pixels */
    OxJuceButton& addText (const juce::String& text, int height);
    void addHeading (const juce::String& text);

    /** As many lines as the text needs; it breaks at blanks outside double quotes, and where the text has line ends. */
    void addWrappedText (const juce::String& text);

    /** A button as wide as its text. */
    OxJuceButton& addButton (const juce::String& text);

    /** A button that leads to a screen. */
    void addMenuItem (const juce::String& text, std::unique_ptr<OxJuceMenuScreen> target);

    template <typename Screen>
    void addMenuItem (const juce::String& text)
    {
        addMenuItem (text, std::make_unique<Screen>());
    }

    /** A switch for a parameter, with a label. */
    void addOptionSwitch (const juce::String& label, int parameterId, OptionPlace place);

    /** A list to choose the parameter's value from, in thousandths, with a label. */
    void addOptionSelector (const juce::String& label, const juce::StringArray& choices, int parameterId);

    int getCentreX() const;

    int cursorY = 0;   // the next block's upper edge, in the editor

    /** Of lines and option rows, pixels; an editor that is narrower has its own width. A screen sets it at the start. */
    static inline int columnWidth = kDefaultColumnWidth;

    // OxJuceControl::Listener
    void controlValueChanged (OxJuceControl& control) override;

private:
    OxJuceButton& addItem (const juce::String& text, juce::Rectangle<int> bounds);
    void addRowLabel (const juce::String& text, int x, int width);
    void clear();
    void fitToPanel();
    int getColumnWidth() const;
    int measure (const juce::String& text) const;

    OxJuceEditorBase& editor;
    bool wantOpen = false;
    OxJuceModalBackground modalBackground;
    std::array<std::unique_ptr<OxJuceButton>, kNumItems> items;
    std::array<std::unique_ptr<OxJuceMenuScreen>, kNumItems> itemTargets;   // shown by a click on the item; mostly null
    int itemCount = 0;                                                      // of items on show
    std::vector<std::unique_ptr<OxJuceSelectorControl>> selectors;          // on show
    std::unique_ptr<OxJuceMenuScreen> nextScreen;
};
