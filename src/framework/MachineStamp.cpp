// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/MachineStamp.h"

juce::String makeMachineStamp (const juce::String& computerName)
{
    constexpr int kSize = 160, kMaxLength = kSize - 3;   // bytes; two digits and "-" stand before the name
    juce::Random random (juce::Time::currentTimeMillis());
    std::array<char, kSize> letters {};

    for (auto& letter : letters)
        letter = static_cast<char> ('a' + random.nextInt (26));

    auto name = computerName.substring (0, kMaxLength);

    while (name.getNumBytesAsUTF8() > kMaxLength)
        name = name.dropLastCharacters (1);

    const auto length = static_cast<int> (name.getNumBytesAsUTF8());
    const auto text = juce::String::toHexString (length).paddedLeft ('0', 2) + "-" + name;
    const auto start = length == kMaxLength ? 0 : random.nextInt (kMaxLength - length);
    std::memcpy (letters.data() + start, text.toRawUTF8(), text.getNumBytesAsUTF8());
    return juce::MemoryBlock (letters.data(), letters.size()).toBase64Encoding();
}
