// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/GlyphTables.h"

#include <EmbeddedImages.h>
#include <gtest/gtest.h>
#include <juce_graphics/juce_graphics.h>

namespace
{
struct Picture
{
    const char* name;
    int width, height, cellHeight;   // the last is 0 for what is no font
};

constexpr Picture pictures[] = {
    { "ButtonMid_png", 32, 32, 0 },
    { "ButtonVSmall_png", 10, 10, 0 },
    { "Title_png", 117, 48, 0 },
    { "SliderHandle_png", 11, 11, 0 },
    { "FONT_FontText10_png", 512, 180, 11 },
    { "FONT_FontText11_png", 480, 728, 12 },
    { "FONT_FontText12_png", 480, 844, 14 },
    { "FONT_FontText14_png", 480, 1092, 15 },
    { "FONT_FontText18_png", 480, 892, 20 },
    { "FONT_FontText20_png", 1024, 264, 22 },
    { "FONT_FontText22_png", 1024, 312, 25 },
    { "FONT_FontText24_png", 1024, 368, 27 },
    { "FONT_FontText28_png", 1024, 484, 31 },
    { "FONT_FontText44_png", 1024, 1024, 57 },
    { "FONT_DuoJudgeBigLetters_png", 1024, 1024, 74 },
};

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

TEST (ImagesTest, AreFoundUnderTheirFullNameOnly)
{
    for (const char* name : { "", "Title", "Title.png", static_cast<const char*> (nullptr) })
    {
        int size = 99;
        EXPECT_EQ (resources::getNamedResource (name, size), nullptr);
        EXPECT_EQ (size, 0);
        EXPECT_EQ (findGlyphTable (name), nullptr);
    }
}

TEST (ImagesTest, HaveTheirSizeAndSheetsAllTheirInkInCells)
{
    for (const auto& picture : pictures)
    {
        SCOPED_TRACE (picture.name);
        auto image = load (picture.name);
        ASSERT_EQ (image.getBounds(), juce::Rectangle<int> (picture.width, picture.height));

        const auto* table = findGlyphTable (picture.name);
        ASSERT_EQ (table != nullptr, picture.cellHeight > 0);

        if (table == nullptr)
            continue;

        juce::Image::BitmapData sheet (image, juce::Image::BitmapData::readWrite);
        EXPECT_EQ (table->front().bottom - table->front().top, picture.cellHeight);

        for (int code = ' '; code <= lastGlyphCode; ++code)
        {
            const auto& cell = at (*table, code);
            const bool never = code == lastGlyphCode || code == 0x60 || code == 0x7f;
            const bool always = ! never && (code < 0x7f || (code >= 0x410 && code <= 0x44f));
            ASSERT_FALSE (cell.bottom == 0 ? always : never) << code;

            if (cell.bottom == 0)   // no glyph
                continue;

            EXPECT_EQ (cell.bottom - cell.top, picture.cellHeight) << code;
            ASSERT_TRUE (
                image.getBounds().contains ({ cell.left, cell.top, cell.right - cell.left, picture.cellHeight }));
            EXPECT_EQ (lift (sheet, cell), code != ' ' && code != 0xa0) << code;
        }

        EXPECT_FALSE (lift (sheet, { 0, 0, picture.width, picture.height })) << "ink outside all cells";
    }
}
