// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

/** Where a character's cell stands in its sheet, in pixels; all zero for a character without a glyph.
    The pen moves on by the cell's width. */
struct GlyphRecord
{
    int left, top, right, bottom;
};

constexpr int firstGlyphCode = 10;
constexpr int lastGlyphCode = 2048;

/** A record for each code from `firstGlyphCode` to `lastGlyphCode`, indexed by code minus `firstGlyphCode`.
    The first one is a cell of the line's height; the last one is always empty. */
using GlyphTable = std::array<GlyphRecord, lastGlyphCode - firstGlyphCode + 1>;

/** The table of the font sheet with that resource name, such as "FONT_FontText10_png" [any thread].
    @returns null for a null name and for one that is no font sheet; tables live as long as the program. */
const GlyphTable* findGlyphTable (const char* resourceName);
