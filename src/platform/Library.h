// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace juce
{
class String;
}

namespace platform
{

/** A shared library that this process holds; `kNoLibrary` stands for none. */
using LibraryHandle = std::intptr_t;
constexpr LibraryHandle kNoLibrary = -1;

/** Loads a shared library [any thread]. The path may use either separator, and the file any suffix.
    @returns `kNoLibrary` when the file is missing or cannot be loaded. */
LibraryHandle loadLibrary (const juce::String& path);

/** @returns the address exported under `name`, or null [any thread]. */
void* findExport (LibraryHandle library, const char* name);

/** Gives the library back; `kNoLibrary` is let pass [any thread]. */
void freeLibrary (LibraryHandle library);

}   // namespace platform
