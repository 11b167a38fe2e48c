// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxFontMetrics.h"
#include "gui/OxOglComponentTexture.h"

/** Where a text stands in its box; the numbers are those that controls keep. */
enum class TextJustification : int
{
    left = 0,
    right = 1,
    centre = 2
};

/** One size of type: a sheet of drawn glyphs and where each of them lies. A text is one batch of quads, without kerning; it
    is neither clipped nor shortened. Nothing here changes after `load`. */
class OxJuceOglFont : public OxOglComponentUser
{
public:
    /** @param resourceName of the sheet [message thread]; an unknown one leaves a font without glyphs or size */
    void load (const juce::String& resourceName, OxJuceEditorBase* newEditor);

    /** The width of a text in pixels, without allocating [any thread]. */
    int measure (const juce::String& text) const noexcept;

    /** Height of every line, pixels; 0 for a font that was not loaded. */
    int getHeight() const noexcept { return metrics != nullptr ? metrics->height : 0; }

    /** Draws a line in the pending colour, in the middle of the box's height, and leaves the pending state as it was
        [render thread].
        @param widthReference places the text as if it had this one's width; empty for its own width */
    void draw (juce::Rectangle<int> box, const juce::String& text, TextJustification justification,
               const juce::String& widthReference = {});

private:
    void drawGlyphs (const char* text, int x, int y) const;

    const OxFontMetrics* metrics = nullptr;
    OxOglComponentTexture texture { "<font>" };
};
