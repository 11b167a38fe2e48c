// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "resources/GlyphTables.h"

#include <array>

#include <juce_core/juce_core.h>

/** Where each glyph of a font lies in its sheet, and how wide it is. One table a font, made when it is first asked for and
    kept while the program runs. */
struct OxFontMetrics
{
    static constexpr int firstCode = firstGlyphCode, lastCode = lastGlyphCode;

    /** @param resourceName of the sheet, like "FONT_FontText10_png"
        @returns null if there is no such font [any thread] */
    static const OxFontMetrics* find (const juce::String& resourceName);

    explicit OxFontMetrics (const GlyphTable& records);

    /** The record of a code; one of zeros for a code outside the table. */
    const GlyphRecord& getGlyph (int code) const noexcept;

    /** Pixels from one glyph to the next; 0 for a code without a glyph. */
    int getWidth (int code) const noexcept;

    const GlyphTable& glyphs;   // from `firstCode` on
    const int height;           // of every cell, pixels
    std::array<int, lastCode + 1> widths {};
};
