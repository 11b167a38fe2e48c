// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/PresetNames.h"

namespace
{

constexpr std::pair<const char*, const char*> kEscapes[] {
    { "/", "2F" }, { "\\", "5C" }, { "(", "28" }, { ")", "29" }, { "|", "7C" }
};
constexpr auto* kPlain = "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ _-.&+%";

}   // namespace

juce::String encodePresetName (const juce::String& text)
{
    auto encoded = text;

    for (const auto& [character, code] : kEscapes)
        encoded = encoded.replace (character, juce::String ("&") + code);

    return encoded.retainCharacters (kPlain);
}

juce::String decodePresetName (const juce::String& text)
{
    auto decoded = text;

    for (const auto* const mark : { "%", "&" })
        for (const auto& [character, code] : kEscapes)
            decoded = decoded.replace (juce::String (mark) + code, character);

    return decoded;
}
