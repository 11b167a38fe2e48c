// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/StateFrame.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace
{

constexpr char kMagic[] { 'V', 'C', '2', '!' };
constexpr int kHeaderSize = 8;                // bytes: the magic and the length
constexpr int kFrameSize = kHeaderSize + 1;   // bytes around the text

// Each is far above what a state needs: 46 programs take 48 tags, and all names together hardly an escape a letter.
constexpr int kMaxTags = 256;                              // bounds the nesting too
constexpr int kMaxEscapeLength = 16;                       // from '&' to ';'
constexpr auto kMaxEscapeWork = juce::int64 { 1 } << 32;   // bytes copied while values with escapes grow

bool isEscape (const char* text, const char* end)
{
    end = text + std::min<std::ptrdiff_t> (end - text, kMaxEscapeLength);
    return std::find (text, end, ';') != end;
}

/** Whether the parser may see a text. It calls itself for each nested element, expands what a document type declares in
    tags within its tag, and copies a value anew at each escape in it; so there are few tags, none in another, and only so
    many escapes. A text that fails here is none that a state is saved as, which has attributes alone. */
bool isSafeToParse (const char* text, const char* end, int maxAttributes)
{
    auto inTag = false;
    char quote = 0;
    const char* valueStart = text;
    int numTags = 0, numAttributes = 0;
    juce::int64 escapeWork = 0;

    for (; text != end; ++text)
    {
        if (*text == '<')
        {
            if (inTag || ++numTags > kMaxTags)
                return false;

            inTag = true;
        }
        else if (quote != 0)
        {
            if (*text == '&' && (! isEscape (text, end) || (escapeWork += text - valueStart) > kMaxEscapeWork))
                return false;

            if (*text == quote)
                quote = 0;
        }
        else if (inTag && (*text == '"' || *text == '\''))
        {
            if (++numAttributes > maxAttributes)
                return false;

            quote = *text;
            valueStart = text;
        }
        else if (*text == '>')
        {
            inTag = false;
        }
        else if (*text == '&' || (! inTag && std::strchr (" \t\r\n", *text) == nullptr))
        {
            return false;
        }
    }

    return ! inTag;   // the parser takes a tag that breaks off for a whole one
}

}   // namespace

bool stateFrame::hasMagic (const void* data, std::size_t size) noexcept
{
    return data != nullptr && size >= sizeof (kMagic) && std::memcmp (data, kMagic, sizeof (kMagic)) == 0;
}

int stateFrame::getFrameSize (const void* data, int size) noexcept
{
    if (size <= 0 || ! hasMagic (data, static_cast<std::size_t> (size)))
        return 0;

    if (size < kHeaderSize)
        return size;

    const juce::int64 length = juce::ByteOrder::littleEndianInt (static_cast<const char*> (data) + sizeof (kMagic));
    return static_cast<int> (std::min<juce::int64> (length + kFrameSize, size));
}

std::unique_ptr<juce::XmlElement> stateFrame::read (const void* data, int size, int maxAttributes)
{
    if (size < kFrameSize || ! hasMagic (data, static_cast<std::size_t> (size)))
        return {};

    const auto* const text = static_cast<const char*> (data) + kHeaderSize;
    const auto claimed = static_cast<int> (juce::ByteOrder::littleEndianInt (text - sizeof (juce::uint32)));
    return parse (text, static_cast<std::size_t> (juce::jlimit (0, size - kHeaderSize, claimed)), maxAttributes);
}

std::unique_ptr<juce::XmlElement> stateFrame::parse (const void* data, std::size_t size, int maxAttributes)
{
    const auto* const text = static_cast<const char*> (data);
    const auto* const end = std::find (text, text + size, '\0');
    const auto length = static_cast<int> (end - text);

    if (! juce::CharPointer_UTF8::isValidString (text, length) || ! isSafeToParse (text, end, maxAttributes))
        return {};

    return juce::parseXML (juce::String::fromUTF8 (text, length));
}

juce::MemoryBlock stateFrame::write (const juce::XmlElement& root)
{
    const auto text = root.toString (juce::XmlElement::TextFormat().singleLine().withoutHeader());
    const auto length = text.getNumBytesAsUTF8();
    juce::MemoryBlock frame (length + kFrameSize);
    const auto word = juce::ByteOrder::swapIfBigEndian (static_cast<juce::uint32> (length));
    frame.copyFrom (kMagic, 0, sizeof (kMagic));
    frame.copyFrom (&word, sizeof (kMagic), sizeof (word));
    frame.copyFrom (text.toRawUTF8(), kHeaderSize, length + 1);
    return frame;
}

juce::String stateFrame::toText (float value)
{
    constexpr int digits = 9;
    char text[32];
    const auto end = std::to_chars (std::begin (text), std::end (text), static_cast<double> (value),
                                    std::chars_format::general, digits);
    return { text, static_cast<std::size_t> (end.ptr - text) };
}

bool stateFrame::decode (const juce::String& text, juce::MemoryBlock& block)
{
    // The text tells its size in front, and the toolkit would take any size on trust.
    const juce::int64 numChars = text.fromFirstOccurrenceOf (".", false, false).length();
    const auto numBytes = text.getLargeIntValue();
    juce::MemoryBlock decoded;

    if (numBytes < 0 || numBytes > numChars || ! decoded.fromBase64Encoding (text))
        return false;

    block.swapWith (decoded);
    return true;
}
