// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** Reads one code point, and moves `text` behind it; 0 at the end of the text.

    Bytes of any kind are let come: a code that breaks off is what has come of it, one that comes to 0 ends the text, and the
    terminating 0 is never passed.
    @param text terminated by a 0 */
inline int readUtf8 (const char*& text) noexcept
{
    constexpr int maxFollowing = 3;
    auto code = static_cast<unsigned char> (*text);

    if (code == 0)
        return 0;

    ++text;
    int numFollowing = 0;

    if ((code & 0x80) != 0)
        for (int bit = 0x40; (code & bit) != 0 && numFollowing < maxFollowing; bit >>= 1)
            ++numFollowing;

    auto value = static_cast<int> (code & (0x7f >> numFollowing));

    for (auto isWhole = true; numFollowing > 0 && *text != 0; --numFollowing, ++text)
    {
        const auto next = static_cast<unsigned char> (*text);
        isWhole = isWhole && (next & 0xc0) == 0x80;

        if (isWhole)
            value = (value << 6) | (next & 0x3f);
    }

    return value;
}
