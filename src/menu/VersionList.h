// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** What the server's list of current versions says of an installed one. */
namespace versionList
{

enum class Verdict
{
    unknown,   // the list does not name the product
    newer,     // there is a newer version
    current,
    preRelease   // the list is behind
};

/** A version as one number that orders: up to four numbers below 1000, separated by dots; what is missing counts as 0. */
juce::int64 toComparable (const juce::String& version);

/** @param list    comma separated, with "VERSION_" and a product's key before that product's version
    @param product the key to look for */
Verdict judge (const juce::String& list, const juce::String& product, const juce::String& ownVersion);

}   // namespace versionList
