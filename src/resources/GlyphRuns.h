// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** Characters in succession whose cells stand side by side in one row of a sheet. */
struct GlyphRun
{
    short firstCode, count;
    short top, left;   // of the first cell, in pixels of the sheet
};

/** The packed form of a sheet's glyph table, as it is generated with the sheet. */
struct GlyphSheet
{
    const char* resourceName;
    int cellHeight;
    const GlyphRun* runs;
    int numRuns;
    const unsigned char* widths;   // of every cell, run after run
};

extern const GlyphSheet* const glyphSheets;
extern const int numGlyphSheets;
