// SPDX-License-Identifier: GPL-3.0-or-later
#include "menu/VersionList.h"

namespace versionList
{

juce::int64 toComparable (const juce::String& version)
{
    constexpr int numParts = 4, base = 1000;
    const auto parts = juce::StringArray::fromTokens (version, ".", {});
    juce::int64 value = 0;

    for (int index = 0; index < numParts; ++index)
        value = value * base + parts[index].getIntValue();

    return value;
}

Verdict judge (const juce::String& list, const juce::String& product, const juce::String& ownVersion)
{
    const auto tokens = juce::StringArray::fromTokens (list, ",", "\"");
    const auto index = tokens.indexOf ("VERSION_" + product);

    if (index < 0)
        return Verdict::unknown;

    const auto current = toComparable (tokens[index + 1]), own = toComparable (ownVersion);
    return current > own ? Verdict::newer : current == own ? Verdict::current : Verdict::preRelease;
}

}   // namespace versionList
