// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** Small files that are read and replaced as a whole, whatever stands under their names [any thread but the audio
    thread]. */
namespace platform
{

/** The file of a path that is written with either separator; none if the path does not start at this system's root. */
juce::File getFileAt (const juce::String& path);

/** @param maxSize bytes: a larger file is not read at all
    @returns false, with `content` in no defined state, if there is no such plain file or it cannot be read. */
bool readFile (const juce::File& file, juce::MemoryBlock& content, juce::int64 maxSize);

/** Makes the folder, with all its parents, and puts the file in place of any other under its name in one step: no reader and
    no crash ever meets half of it. Until then it grows beside it under a hidden name.
    @returns false if that failed; what stood there before still stands. */
bool replaceFile (const juce::File& file, const void* data, std::size_t size);

}   // namespace platform
