// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxFontMetrics.h"

#include <map>
#include <mutex>

namespace
{

constexpr bool isInTable (int code)
{
    return code >= OxFontMetrics::firstCode && code <= OxFontMetrics::lastCode;
}

}   // namespace

OxFontMetrics::OxFontMetrics (const GlyphTable& records) :
    glyphs (records), height (records.front().bottom - records.front().top)
{
    for (int code = firstCode; code <= lastCode; ++code)
        widths[static_cast<std::size_t> (code)] = getGlyph (code).right - getGlyph (code).left;
}

const OxFontMetrics* OxFontMetrics::find (const juce::String& resourceName)
{
    static std::mutex lock;
    static std::map<juce::String, std::unique_ptr<OxFontMetrics>> known;

    const std::scoped_lock scope (lock);
    auto& entry = known[resourceName];

    if (entry == nullptr)
        if (const auto* const records = findGlyphTable (resourceName.toRawUTF8()))
            entry = std::make_unique<OxFontMetrics> (*records);

    return entry.get();
}

const GlyphRecord& OxFontMetrics::getGlyph (int code) const noexcept
{
    static constexpr GlyphRecord none {};
    return isInTable (code) ? glyphs[static_cast<std::size_t> (code - firstCode)] : none;
}

int OxFontMetrics::getWidth (int code) const noexcept
{
    return isInTable (code) ? widths[static_cast<std::size_t> (code)] : 0;
}
