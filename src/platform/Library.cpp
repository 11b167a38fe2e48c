// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Library.h"

#include <dlfcn.h>

#include <juce_core/juce_core.h>

namespace platform
{

LibraryHandle loadLibrary (const juce::String& path)
{
    const auto nativePath = path.replaceCharacter ('\\', '/');
    auto* const library = ::dlopen (nativePath.toRawUTF8(), RTLD_NOW | RTLD_LOCAL);
    return library != nullptr ? reinterpret_cast<LibraryHandle> (library) : kNoLibrary;
}

void* findExport (LibraryHandle library, const char* name)
{
    return library != kNoLibrary ? ::dlsym (reinterpret_cast<void*> (library), name) : nullptr;
}

void freeLibrary (LibraryHandle library)
{
    if (library != kNoLibrary)
        ::dlclose (reinterpret_cast<void*> (library));
}

}   // namespace platform
