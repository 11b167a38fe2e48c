// SPDX-License-Identifier: GPL-3.0-or-later
#include "Action.h"

#include <charconv>
#include <cmath>

namespace desk
{
namespace
{

using Kind = Action::Kind;

constexpr unsigned bit (View view)
{
    return 1u << static_cast<unsigned> (view);
}

constexpr auto inNormal = bit (View::normal), inTest = bit (View::test), inResults = bit (View::results);

struct Entry
{
    Kind kind;
    const char* word;
    const char* argument;   // empty for none, "DB" for a number
    unsigned views;         // those that offer the action
    std::optional<View> next;
};

constexpr Entry entries[] {
    { Kind::selectA, "select", "A", inNormal | inResults, {} },
    { Kind::selectB, "select", "B", inNormal | inResults, {} },
    { Kind::startTest, "test", "", inNormal, View::test },
    { Kind::flipX, "flip", "X", inTest, {} },
    { Kind::flipY, "flip", "Y", inTest, {} },
    { Kind::choose, "choose", "", inTest, {} },
    { Kind::reveal, "reveal", "", inTest, View::results },
    { Kind::resume, "resume", "", inResults, View::test },
    { Kind::end, "end", "", inTest | inResults, View::normal },
    { Kind::gain, "gain", "DB", inNormal, {} },
};

const Entry& getEntry (Kind kind)
{
    for (const auto& entry : entries)
        if (entry.kind == kind)
            return entry;

    jassertfalse;
    return entries[0];
}

juce::Result parseGain (const juce::String& text, Action& result)
{
    const auto number = readNumber (text);

    if (! number.has_value() || std::abs (*number) > kMaxGain)
        return juce::Result::fail ("a gain is a number of decibels from -10 to 10, not \"" + text + "\"");

    result = { Kind::gain, static_cast<float> (*number) };
    return juce::Result::ok();
}

}   // namespace

juce::Result Action::parse (const juce::StringArray& words, Action& result)
{
    juce::StringArray arguments;   // those that the word takes

    for (const auto& entry : entries)
    {
        if (words[0] != entry.word)
            continue;

        if (entry.kind == Kind::gain && words.size() == 2)
            return parseGain (words[1], result);

        arguments.add (entry.argument);

        if (words.size() == (*entry.argument == 0 ? 1 : 2) && words[1] == entry.argument)
        {
            result = { entry.kind };
            return juce::Result::ok();
        }
    }

    if (arguments.isEmpty())
        return juce::Result::fail ("\"" + words[0] + "\" is no action");

    if (arguments[0].isEmpty())
        return juce::Result::fail ("\"" + words[0] + "\" stands alone");

    return juce::Result::fail ("\"" + words[0] + "\" takes one argument: " + arguments.joinIntoString (" or "));
}

juce::String Action::toString() const
{
    const auto& entry = getEntry (kind);
    const auto argument = kind == Kind::gain ? juce::String (decibels, 1) : juce::String (entry.argument);
    return (entry.word + (" " + argument)).trimEnd();
}

std::optional<View> Action::getViewAfter (View view, Kind kind)
{
    const auto& entry = getEntry (kind);

    if ((entry.views & bit (view)) == 0)
        return {};

    return entry.next.has_value() ? entry.next : view;
}

std::optional<double> readNumber (const juce::String& text)
{
    const auto* const first = text.toRawUTF8();
    const auto* const last = first + text.getNumBytesAsUTF8();
    double number = 0.0;
    const auto read = std::from_chars (first, last, number, std::chars_format::fixed);

    if (read.ec != std::errc() || read.ptr != last || ! std::isfinite (number))
        return {};

    return number;
}

}   // namespace desk
