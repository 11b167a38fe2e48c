// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Judge.h"
#include "ProgressLine.h"
#include "Script.h"

namespace desk
{

/** Plays a comparison into a file, as fast as it goes, with a script in the listener's place [message thread].

    The file is as long as A and aligned with it: the comparator's latency is fed ahead and left out. Each action takes hold
    with the very sample of its time. */
class OfflineRender
{
public:
    /** @param script must outlive the render */
    OfflineRender (ComparisonGraph& comparison, const Script& script, ProgressLine& progressLine);

    /** Finds the file that an output stands for, itself or what its links lead to: one that is new, or a plain file that
        may be replaced; to be asked before long work. @returns in one line why there is none, or success */
    static juce::Result findTarget (const juce::File& output, juce::File& target);

    /** Writes `output`, a WAV file of 32-bit floats, which appears when all of it is written.
        @returns in one line why it could not, or success */
    juce::Result writeTo (const juce::File& output);

private:
    bool render (juce::AudioFormatWriter& writer);
    juce::int64 performActionsDue (juce::int64 outputPosition);
    void perform (const Script::Line& line);

    struct Due
    {
        juce::int64 position;   // of the output
        const Script::Line* line;
    };

    ComparisonGraph& graph;
    Judge judge;
    ProgressLine& progress;
    std::vector<Due> schedule;   // in the order of position
    std::size_t numDone = 0;
};

}   // namespace desk
