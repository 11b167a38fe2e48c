// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxJuceOglFont.h"

#include "gui/OxJuceEditorBase.h"
#include "gui/Utf8.h"

using namespace juce::gl;

void OxJuceOglFont::load (const juce::String& resourceName, OxJuceEditorBase* newEditor)
{
    if (newEditor != nullptr)
        setOglComponent (newEditor);

    metrics = OxFontMetrics::find (resourceName);

    if (metrics != nullptr)
        texture.loadFromResource (resourceName);
}

int OxJuceOglFont::measure (const juce::String& text) const noexcept
{
    if (metrics == nullptr)
        return 0;

    int width = 0;
    const char* next = text.toRawUTF8();

    while (const int code = readUtf8 (next))
        width += metrics->getWidth (code);

    return width;
}

void OxJuceOglFont::draw (juce::Rectangle<int> box, const juce::String& text, TextJustification justification,
                          const juce::String& widthReference)
{
    auto* const target = surface.get();

    if (metrics == nullptr || target == nullptr || text.isEmpty())
        return;

    const GlStateCache::ScopedPending kept (target->glState);
    auto x = box.getX();

    if (justification != TextJustification::left)
    {
        const auto room = box.getWidth() - measure (widthReference.isNotEmpty() ? widthReference : text);
        x += justification == TextJustification::centre ? room / 2 : room;
    }

    texture.bind (target);
    target->applyGlState();
    drawGlyphs (text.toRawUTF8(), x, box.getY() + (box.getHeight() - metrics->height) / 2);
}

void OxJuceOglFont::drawGlyphs (const char* text, int x, int y) const
{
    const auto u = texture.getPixelWidth(), v = texture.getPixelHeight();
    const auto corner = [=] (int sheetX, int sheetY, int screenX, int screenY)
    {
        glTexCoord2f (static_cast<float> (sheetX) * u, static_cast<float> (sheetY) * v);
        glVertex2i (screenX, screenY);
    };
    glBegin (GL_QUADS);

    while (const int code = readUtf8 (text))
    {
        const auto& glyph = metrics->getGlyph (code);
        const auto right = x + metrics->getWidth (code), bottom = y + metrics->height;
        corner (glyph.left, glyph.top, x, y);
        corner (glyph.left, glyph.bottom, x, bottom);
        corner (glyph.right, glyph.bottom, right, bottom);
        corner (glyph.right, glyph.top, right, y);
        x = right;
    }

    glEnd();
}
