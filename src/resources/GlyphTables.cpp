// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/GlyphTables.h"

#include "resources/GlyphRuns.h"

#include <cstring>
#include <vector>

namespace
{
GlyphTable unpack (const GlyphSheet& sheet)
{
    GlyphTable table {};
    const auto* width = sheet.widths;

    for (const auto* run = sheet.runs; run != sheet.runs + sheet.numRuns; ++run)
    {
        int left = run->left;

        for (int code = run->firstCode; code < run->firstCode + run->count; ++code, ++width)
        {
            auto& record = table[static_cast<size_t> (code - firstGlyphCode)];
            record = { left, run->top, left + *width, run->top + sheet.cellHeight };
            left = record.right;
        }
    }

    return table;
}

std::vector<GlyphTable> unpackAll()
{
    std::vector<GlyphTable> tables;

    for (const auto* sheet = glyphSheets; sheet != glyphSheets + numGlyphSheets; ++sheet)
        tables.push_back (unpack (*sheet));

    return tables;
}
}   // namespace

const GlyphTable* findGlyphTable (const char* resourceName)
{
    if (resourceName == nullptr)
        return nullptr;

    static const auto tables = unpackAll();

    for (size_t i = 0; i < tables.size(); ++i)
        if (std::strcmp (glyphSheets[i].resourceName, resourceName) == 0)
            return &tables[i];

    return nullptr;
}
