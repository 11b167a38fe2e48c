// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ViewWatch.h"

class ModalTextEditorUser;

/** Typing is left to the toolkit: its text editor, in a modal window that covers the control meanwhile [message thread].

    An edit ends by Return, Escape, a click outside, or when the keyboard goes elsewhere; also when the control no longer
    shows, as in an editor that its host closes. It delivers its text exactly once, and not at all if it dies first.

    The window takes the keyboard as it appears, so nothing but the going of the control ends an edit in its first half
    second. A Return that comes too early leaves the window open for the next one. */
class ModalTextEditor : public juce::TextEditor, private juce::TextEditor::Listener, private juce::Timer
{
public:
    ModalTextEditor();
    ~ModalTextEditor() override;

    /** The looks of the next edit; its indents are set before.
        @param area on the desktop
        @param fontHeight pixels, of which no more is taken than there is room for */
    void setLook (juce::Rectangle<int> area, juce::Colour text, juce::Colour background, float fontHeight);

    /** Arms an edit; its window comes up a moment later, when the mouse event that asked for it is over. An edit that is open
        ends first. @param newUser receives the text; its component must stay on screen for as long as the edit is to last
        @param forReading no key changes the text, but it can be copied */
    void open (ModalTextEditorUser& newUser, bool forReading, const juce::String& text);

    /** Whether an edit is armed or open. */
    bool isOpen() const noexcept { return user != nullptr; }

    // juce::Component
    void focusLost (FocusChangeType cause) override;
    void inputAttemptWhenModal() override;
    bool keyPressed (const juce::KeyPress& key) override;

private:
    // juce::TextEditor::Listener
    void textEditorReturnKeyPressed (juce::TextEditor&) override;
    void textEditorEscapeKeyPressed (juce::TextEditor&) override;

    // juce::Timer
    void timerCallback() override;

    void showWindow();
    void leave();
    void finish();
    void closeWindow();
    void watch (juce::Component* newControl);
    bool hasKeyboard() const;

    juce::uint32 startTime = 0;                              // milliseconds, when the edit was armed
    ModalTextEditorUser* user = nullptr;                     // gets the text; null without an edit
    juce::Component::SafePointer<juce::Component> control;   // the user, as the window sees it
    std::unique_ptr<ViewWatch> viewWatch;                    // of the control
    bool hadKeyboard = false;                                // at the last tick
    bool returnsKeyboard = false;                            // the control's window had it before
    int numEdits = 0;
    juce::String startText;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ModalTextEditor)
};
