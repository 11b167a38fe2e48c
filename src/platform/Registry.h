// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include <juce_core/juce_core.h>

/** Small values under keys that last on the machine [any thread but the audio thread].

    A key is a path with backslashes; keys and value names are any text and are compared without regard to case. There is
    one root for the user, below the user's configuration folder, and one for the machine, which users may mostly not
    write. A key is a folder and a value a file in it: four bytes that tell the kind, "bin\n" or "txt\n", then the value.
    Each value is replaced in one step, so that no reader and no crash ever meets half of one. */
namespace platform::registry
{

enum class Root
{
    user,
    machine
};

enum class Kind
{
    binary,
    text
};

enum class Deletion
{
    done,     // also for a value that was not there
    noKey,    // the key does not exist or may not be changed
    refused   // the value is still there
};

constexpr int kMaxValueSize = 20480;   // bytes that are ever read

struct Value
{
    Kind kind = Kind::binary;
    int size = 0;   // bytes
    std::array<char, kMaxValueSize> bytes {};
};

/** @returns false, with `value` in no defined state, if there is no such value, or none that fits. */
bool read (Root root, const juce::String& key, const juce::String& name, Value& value);

/** Makes the key, with all its parents, and puts the value in place of any other under its name.
    @returns false if that failed; what stood there before still stands. */
bool write (Root root, const juce::String& key, const juce::String& name, Kind kind, const void* data, int size);

Deletion remove (Root root, const juce::String& key, const juce::String& name);

}   // namespace platform::registry
