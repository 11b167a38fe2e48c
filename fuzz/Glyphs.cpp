// SPDX-License-Identifier: GPL-3.0-or-later
#include "FuzzTarget.h"

#include "gui/OxJuceOglFont.h"
#include "gui/Utf8.h"

namespace
{

/** A text of any bytes is as wide as its glyphs together, in every font. */
void run (const std::uint8_t* data, std::size_t size)
{
    const std::string text (data, data + size);

    for (const auto* const sheet : { "FONT_FontText10_png", "FONT_DuoJudgeBigLetters_png" })
    {
        const auto* const metrics = OxFontMetrics::find (sheet);
        const auto* next = text.c_str();
        juce::int64 width = 0;

        while (const auto code = readUtf8 (next))
        {
            const auto& glyph = metrics->getGlyph (code);
            promise (glyph.right - glyph.left == metrics->getWidth (code));
            width += metrics->getWidth (code);
        }

        promise (next <= text.c_str() + size && width >= 0);
    }
}

const FuzzTarget target { "Glyphs", run };

}   // namespace
