// SPDX-License-Identifier: GPL-3.0-or-later
#include "Script.h"

#include <algorithm>

namespace desk
{
namespace
{

juce::Result fault (const Script::Line& line, const juce::String& what)
{
    return juce::Result::fail ("line " + juce::String (line.number) + ": " + what);
}

const char* describe (View view)
{
    switch (view)
    {
        case View::normal:
            return "no test is running";
        case View::test:
            return "a test is running";
        case View::results:
            return "the votes are revealed";
    }

    return "";
}

juce::Result parseLine (const juce::String& text, Script::Line& line)
{
    auto words = juce::StringArray::fromTokens (text, " \t", {});
    words.removeEmptyStrings();
    const auto seconds = readNumber (words[0]);

    if (! seconds.has_value() || *seconds < 0.0)
        return fault (line, "a line begins with a time in seconds, not with \"" + words[0] + "\"");

    if (words.size() < 2)
        return fault (line, "no action follows the time");

    line.seconds = *seconds;
    words.remove (0);
    const auto read = Action::parse (words, line.action);
    return read.wasOk() ? read : fault (line, read.getErrorMessage());
}

/** Walks through the views as a listener would and stops at the first action that is not on offer. */
juce::Result checkOrder (const Script& script)
{
    auto view = View::normal;

    for (const auto& line : script.lines)
    {
        const auto next = Action::getViewAfter (view, line.action.kind);

        if (! next.has_value())
            return fault (line, "\"" + line.action.toString() + "\" cannot be done while " + describe (view));

        view = *next;
    }

    return juce::Result::ok();
}

}   // namespace

juce::Result Script::parse (const juce::String& text, Script& result)
{
    Script script;
    const auto texts = juce::StringArray::fromLines (text);

    for (int index = 0; index < texts.size(); ++index)
    {
        const auto content = texts[index].upToFirstOccurrenceOf ("#", false, false).trim();

        if (content.isEmpty())
            continue;

        Line line;
        line.number = index + 1;

        if (const auto read = parseLine (content, line); read.failed())
            return read;

        script.lines.push_back (line);
    }

    std::stable_sort (script.lines.begin(), script.lines.end(),
                      [] (const Line& first, const Line& second) { return first.seconds < second.seconds; });

    if (const auto order = checkOrder (script); order.failed())
        return order;

    result = std::move (script);
    return juce::Result::ok();
}

juce::Result Script::checkLength (double seconds) const
{
    for (const auto& line : lines)
        if (line.seconds >= seconds)
            return fault (line, describeTime (line.seconds) + " is not before the end, which is at " +
                                    describeTime (seconds));

    return juce::Result::ok();
}

Script Script::makeDefault (double seconds)
{
    using Kind = Action::Kind;
    constexpr auto testBegin = 0.40, testEnd = 0.85;   // of the whole
    constexpr auto shortestRound = 0.6;                // seconds: a quarter of it outlasts the fade after a vote
    constexpr auto maxRounds = 5;

    Script script;
    const auto add = [&script, seconds] (double place, Kind kind) {
        script.lines.push_back ({ place * seconds, { kind } });
    };

    add (0.0, Kind::selectA);
    add (0.12, Kind::selectB);
    add (0.26, Kind::selectA);
    add (testBegin, Kind::startTest);

    const auto rounds = juce::jlimit (1, maxRounds, static_cast<int> ((testEnd - testBegin) * seconds / shortestRound));

    for (int i = 0; i < rounds; ++i)
    {
        const auto length = (testEnd - testBegin) / rounds;
        const auto begin = testBegin + i * length;
        add (begin, Kind::flipX);
        add (begin + 0.4 * length, Kind::flipY);
        add (begin + 0.75 * length, Kind::choose);
    }

    add (testEnd, Kind::reveal);
    add (0.95, Kind::end);
    return script;
}

juce::String Script::toString() const
{
    juce::String text;

    for (const auto& line : lines)
        text << juce::String (line.seconds, 3) << " " << line.action.toString() << "\n";

    return text;
}

juce::String describeTime (double seconds)
{
    return juce::String (seconds, 3) + " s";
}

}   // namespace desk
