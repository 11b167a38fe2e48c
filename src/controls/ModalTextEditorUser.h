// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ModalTextEditor.h"

/** Mix-in of a control into which a user can type [message thread]. It stands after the control's component among the bases,
    so that the window goes first. */
class ModalTextEditorUser
{
public:
    virtual ~ModalTextEditorUser() = default;

    /** Opens the editor with a text, where and as `textEditor` has been set up before. */
    virtual void startEdit (bool readOnly, const juce::String& text) { textEditor.open (*this, readOnly, text); }

    /** The edit is over; after Escape with the text that it began with. It may delete the control. */
    virtual void textEditFinished (const juce::String& text) = 0;

    /** The window, for whoever drives it from outside. */
    ModalTextEditor& getTextEditor() noexcept { return textEditor; }

protected:
    ModalTextEditor textEditor;
};
