// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/HostType.h"

#include "platform/Process.h"

using namespace hostType;

namespace
{

enum class Test
{
    contains,   // ignoring case
    startsWithIgnoringCase,
    startsWith
};

struct Row
{
    const char* text;
    Code code;
    Test test = Test::contains;
};

/** The first row that holds tells the host, so a name stands before each of its beginnings. */
constexpr Row kRows[] { { "Live 6.", live6 },
                        { "Live 7.", live7 },
                        { "Live 8.", live8 },
                        { "Live ", live },
                        { "Adobe Audition", audition },
                        { "Adobe Premiere", premiere },
                        { "ProTools", proTools },
                        { "SONAR 8", sonar8 },
                        { "SONAR", sonar },
                        { "Logic", logic },
                        { "Tracktion 3", tracktion3 },
                        { "Tracktion", tracktion },
                        { "reaper", reaper },
                        { "Cubase4", cubase4 },
                        { "Cubase5", cubase5 },
                        { "Cubase6", cubase6 },
                        { "Cubase7", cubase7 },
                        { "Cubase", cubase },
                        { "VSTBridgeApp", vstBridge },
                        { "Wavelab 5", wavelab5 },
                        { "Wavelab 6", wavelab6 },
                        { "Wavelab 7", wavelab7 },
                        { "Wavelab", wavelab },
                        { "rm-host", rmHost },
                        { "Sam", samplitude, Test::startsWithIgnoringCase },
                        { "FL", flStudio, Test::startsWith },
                        { "Studio One", studioOne },
                        { "nuendo", nuendo } };

bool holds (const Row& row, const juce::String& name)
{
    switch (row.test)
    {
        case Test::contains:
            return name.containsIgnoreCase (row.text);
        case Test::startsWithIgnoringCase:
            return name.startsWithIgnoreCase (row.text);
        case Test::startsWith:
            return name.startsWith (row.text);
    }

    return false;
}

}   // namespace

int getHostType()
{
    const auto name = platform::getExecutableFileName();

    for (const auto& row : kRows)
        if (holds (row, name))
            return row.code;

    return unknown;
}

bool isProTools()
{
    const auto name = platform::getExecutableFileName();
    return name.containsIgnoreCase ("Pro Tools") || name.containsIgnoreCase ("ProTools");
}
