// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** Where a glyph's cell lies in its sheet, pixels; all zero for a code without a glyph. */
struct GlyphRecord
{
    int left = 0, top = 0, right = 0, bottom = 0;
};

namespace resources
{

/** @param sheet the resource name of a font's sheet, like "FONT_FontText10_png"
    @returns the records of the codes 10 to 2048, or null if there is no such font [any thread] */
const GlyphRecord* findGlyphs (const char* sheet);

}   // namespace resources
