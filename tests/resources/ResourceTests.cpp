// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/GlyphTables.h"

#include <EmbeddedImages.h>
#include <gtest/gtest.h>
#include <juce_graphics/juce_graphics.h>

namespace
{
constexpr const char* sheets[] = { "FONT_FontText10_png", "FONT_FontText11_png",        "FONT_FontText12_png",
                                   "FONT_FontText14_png", "FONT_FontText18_png",        "FONT_FontText20_png",
                                   "FONT_FontText22_png", "FONT_FontText24_png",        "FONT_FontText28_png",
                                   "FONT_FontText44_png", "FONT_DuoJudgeBigLetters_png" };

juce::Image load (const char* name)
{
    int size = 0;
    const auto* data = resources::getNamedResource (name, size);
    return juce::ImageFileFormat::loadFrom (data, static_cast<size_t> (size));
}

const GlyphRecord& at (const GlyphTable& table, int code)
{
    return table[static_cast<size_t> (code - firstGlyphCode)];
}

/** Takes the cell's ink out of the sheet. @returns whether there was any. */
bool lift (juce::Image::BitmapData& sheet, const GlyphRecord& cell)
{
    bool ink = false;

    for (int y = cell.top; y < cell.bottom; ++y)
        for (int x = cell.left; x < cell.right; ++x)
        {
            ink |= ! sheet.getPixelColour (x, y).isTransparent();
            sheet.setPixelColour (x, y, {});
        }

    return ink;
}
}   // namespace

TEST (ImagesTest, SheetsHaveAllTheirInkInCellsOfOneHeight)
{
    for (const auto* const name : sheets)
    {
        SCOPED_TRACE (name);
        auto image = load (name);
        const auto* table = findGlyphTable (name);
        ASSERT_TRUE (image.isValid() && table != nullptr);
        juce::Image::BitmapData sheet (image, juce::Image::BitmapData::readWrite);
        const auto height = table->front().bottom - table->front().top;

        for (int code = ' '; code <= lastGlyphCode; ++code)
        {
            const auto& cell = at (*table, code);
            const bool never = code == lastGlyphCode || code == 0x60 || code == 0x7f;
            const bool always = ! never && (code < 0x7f || (code >= 0x410 && code <= 0x44f));
            ASSERT_FALSE (cell.bottom == 0 ? always : never) << code;

            if (cell.bottom == 0)   // no glyph
                continue;

            EXPECT_EQ (cell.bottom - cell.top, height) << code;
            ASSERT_TRUE (image.getBounds().contains ({ cell.left, cell.top, cell.right - cell.left, height }));
            EXPECT_EQ (lift (sheet, cell), code != ' ' && code != 0xa0) << code;
        }

        EXPECT_FALSE (lift (sheet, { 0, 0, image.getWidth(), image.getHeight() })) << "ink outside all cells";
    }
}
