// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** What stands at the end of a sound file whose head promises more than it may hold: a disk was full, a copy ended early. */
namespace desk::fileEnd
{

/** @returns how many of the `promised` samples of a FLAC file can be decoded; all of them in no time, fewer by counting. */
juce::int64 countFlacSamples (const juce::File& file, juce::int64 promised);

/** The pages of an Ogg file, of which each says how long it is and whether it is the last. */
struct OggPages
{
    explicit OggPages (const juce::File& file);

    bool areComplete = false;     // and the last one says that it is
    bool haveOneFormat = false;   // one count of channels and one sample rate: a file may be several in a row
};

}   // namespace desk::fileEnd
