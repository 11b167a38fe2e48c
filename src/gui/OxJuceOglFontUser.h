// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxJuceOglFont.h"

/** Text on a control: in which font and colour, and where in its box. The message thread may change it while the render
    thread draws it, so each call holds a lock to its end. */
class OxJuceOglFontUser : public virtual OxOglComponentUser
{
public:
    void setTextColour (juce::Colour colour);
    juce::Colour getTextColour() const;

    /** @param fontToUse not owned; null: the surface's, of 14 points */
    void setFont (OxJuceOglFont* fontToUse);

    /** The font in use, null without a surface. */
    OxJuceOglFont* getFont() const;

    void setJustification (TextJustification newJustification);
    TextJustification getJustification() const;

    /** @param sample the text is placed as if it had this one's width; empty for its own width */
    void setWidthReference (const juce::String& sample);

    /** Draws a line of text in the box [render thread]. An empty text touches nothing. */
    void drawText (juce::Rectangle<int> box, const juce::String& text);
    void drawText (juce::Rectangle<int> box, const juce::String& text, juce::Colour colour);

private:
    OxJuceOglFont* resolveFont() const;
    void drawLocked (juce::Rectangle<int> box, const juce::String& text, juce::Colour colour);

    juce::Colour textColour = juce::Colours::white;
    OxJuceOglFont* chosenFont = nullptr;   // null: that of 14 points
    juce::CriticalSection fontLock;        // guards everything here
    TextJustification justification = TextJustification::centre;
    juce::String widthReference;
};
