// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxJuceOglFont.h"

/** Mix-in of every control that shows text: its font, colour and the place of the text in its box. The message thread sets,
    the render thread draws; a lock is held for the whole of either. */
class OxJuceOglFontUser : public virtual OxOglComponentUser
{
public:
    void setTextColour (juce::Colour colour);
    juce::Colour getTextColour() const;

    /** @param fontToUse not owned; null for the surface's 14-point font */
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
    OxJuceOglFont* chosenFont = nullptr;   // null for the surface's 14-point font
    juce::CriticalSection fontLock;        // guards everything here
    TextJustification justification = TextJustification::centre;
    juce::String widthReference;
};
