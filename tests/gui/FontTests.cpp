// SPDX-License-Identifier: GPL-3.0-or-later
#include "Pictures.h"
#include "SurfaceRig.h"
#include "gui/Images.h"
#include "gui/OxJuceOglFontUser.h"
#include "gui/Utf8.h"

namespace
{

std::vector<int> decode (const char* text)
{
    std::vector<int> codes;

    while (const int code = readUtf8 (text))
        codes.push_back (code);

    return codes;
}

TEST (FontTest, DecodesUtf8AndNeverPassesTheEndOfATextThatBreaksOff)
{
    using Codes = std::vector<int>;
    EXPECT_EQ (decode ("aé"), (Codes { 'a', 0xe9 }));
    EXPECT_EQ (decode ("Ж€\xf0\x9f\x98\x80!"), (Codes { 0x416, 0x20ac, 0x1f600, '!' }));
    EXPECT_EQ (decode ("\xc3\0hidden"), (Codes { 3 }));
    EXPECT_EQ (decode ("\xf0\x9f\0hidden"), (Codes { 0x1f }));
    EXPECT_EQ (decode ("\xe2xyz"), (Codes { 2, 'z' })) << "the lead's whole length is passed";
    EXPECT_EQ (decode ("\xff\xff\xff\xffz"), (Codes { 0xf, 'z' }));
    EXPECT_EQ (decode ("\xbfz"), (Codes { 0x3f, 'z' })) << "a byte that follows nothing stands for itself";
}

/** The text as the sheet has it, put together glyph by glyph. */
void paintText (juce::Graphics& g, juce::Point<int> at, const char* text)
{
    constexpr auto* sheet = "FONT_FontText12_png";
    const auto image = images::loadResource (sheet);
    const auto& metrics = *OxFontMetrics::find (sheet);
    g.setColour (juce::Colours::white);

    while (const int code = readUtf8 (text))
    {
        const auto& glyph = metrics.getGlyph (code);
        const auto width = glyph.right - glyph.left;

        if (width > 0)
            g.drawImage (image, at.x, at.y, width, metrics.height, glyph.left, glyph.top, width, metrics.height, true);

        at.x += width;
    }
}

TEST (FontTest, PlacesATextThatFitsItsBoxAndOneThatDoesNot)
{
    SurfaceRig rig (200, 24);
    auto& font = *rig.editor->surface.getFont (12);

    // The room beyond the text's own width, and where the text begins in it.
    for (const auto& [justification, room, x] : { std::tuple (TextJustification::left, 9, 0),
                                                  { TextJustification::right, 9, 9 },
                                                  { TextJustification::right, -5, -5 },
                                                  { TextJustification::centre, 7, 3 },
                                                  { TextJustification::centre, -7, -3 } })
    {
        OxJuceOglFontUser writer;
        writer.setOglComponent (rig.editor.get());
        writer.setFont (&font);
        writer.setTextColour (juce::Colours::white);
        writer.setJustification (justification);
        const juce::Rectangle<int> box (50, 2, font.measure ("1.") + room, 20);
        Sketch sketch ({ 0, 0, 200, 24 }, [&] (Sketch&) { writer.drawText (box, "1."); });
        rig.add (sketch);
        const juce::Point at (50 + x, 2 + (20 - font.getHeight()) / 2);
        const auto expected = painted (200, 24, [&] (juce::Graphics& g) { paintText (g, at, "1."); });
        EXPECT_TRUE (looksLike (expected, rig.picture(), 2)) << room;
        rig.editor->surface.removeChildComponent (&sketch);
    }

    rig.editor.reset();
}

TEST (FontTest, GivesNoRoomToWhatHasNoGlyph)
{
    OxJuceOglFont font, none;
    font.load ("FONT_FontText14_png", nullptr);
    none.load ("FONT_Nowhere_png", nullptr);
    const auto text = juce::String (juce::CharPointer_UTF8 ("A\xc2\x85\xe0\xa0\x80\xe2\x82\xac"
                                                            "B"));
    EXPECT_EQ (font.measure (text), font.measure ("A") + font.measure ("B")) << "neither 133 nor 2048 nor 8364";
    EXPECT_EQ (font.measure ({}), 0);
    EXPECT_EQ (none.measure ("A"), 0);
    EXPECT_EQ (none.getHeight(), 0);
}

}   // namespace
