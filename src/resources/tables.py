# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the glyph tables as C++: runs of neighbours in a row, with a width for each character."""
import textwrap

HEAD = """// SPDX-License-Identifier: GPL-3.0-or-later
// Written by generate.py together with the sheets.
// clang-format off
#include "resources/GlyphRuns.h"

namespace
{
"""


def block(items):
    return textwrap.fill(", ".join(items), 120, initial_indent="    ", subsequent_indent="    ", break_long_words=False)


def sheet_tables(number, runs):
    widths = [str(width) for run in runs for width in run.widths]
    places = [f"{{{run.first_code},{len(run.widths)},{run.top},{run.left}}}" for run in runs]
    return (f"const unsigned char widths{number}[] = {{\n{block(widths)} }};\n"
            f"const GlyphRun runs{number}[] = {{\n{block(places)} }};\n\n")


def glyph_tables(drawn):
    """@param drawn (sheet, runs) for each sheet. @returns the source text."""
    tables = "".join(sheet_tables(number, runs) for number, (_, runs) in enumerate(drawn))
    rows = [f'{{"{sheet.name}_png", {sheet.cell}, runs{number}, {len(runs)}, widths{number}}}'
            for number, (sheet, runs) in enumerate(drawn)]
    return (HEAD + tables + "const GlyphSheet sheets[] = {\n    " + ",\n    ".join(rows) + " };\n}\n\n"
            f"const GlyphSheet* const glyphSheets = sheets;\nconst int numGlyphSheets = {len(rows)};\n")
