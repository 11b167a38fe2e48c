// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ostream>

#include <juce_core/juce_core.h>

namespace desk
{

/** Lines of text with the progress of a job below them: one line that is rewritten on a terminal, a line for each quarter
    elsewhere. */
class ProgressLine
{
public:
    /** @param isTerminal whether `output` can rewrite a line */
    ProgressLine (std::ostream& output, bool isTerminal) : out (output), rewrites (isTerminal) {}

    /** Prints a whole line. */
    void say (const juce::String& line);

    /** @param fraction 0 to 1, never less than before; at 1 the line is done */
    void update (double fraction);

private:
    void show();

    std::ostream& out;
    const bool rewrites;
    int percent = -1;
};

}   // namespace desk
