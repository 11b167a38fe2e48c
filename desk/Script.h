// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Action.h"

#include <vector>

namespace desk
{

/** What a listener does at which second of a rendered comparison. */
struct Script
{
    struct Line
    {
        double seconds = 0.0;   // of the output
        Action action { Action::Kind::selectA };
        int number = 0;   // in the text, from 1; 0 for a line that nobody wrote
    };

    /** Reads plain text: one "SECONDS ACTION [ARGUMENT]" a line, in any order; '#' begins a comment.
        Lines of the same time keep their order. @returns the first fault with its line's number, or success */
    static juce::Result parse (const juce::String& text, Script& result);

    /** @returns the fault of the first line that lies at or after `seconds`, the end of the comparison, or success. */
    juce::Result checkLength (double seconds) const;

    /** Both sources in turn, a blind test with up to five votes, and its result, spread over `seconds`. */
    static Script makeDefault (double seconds);

    juce::String toString() const;

    std::vector<Line> lines;   // in the order of time
};

/** "3.250 s", as actions are printed. */
juce::String describeTime (double seconds);

}   // namespace desk
