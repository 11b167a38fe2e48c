// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>

/** One way by which bytes that nobody vouches for come in. Each target is one of these in a source of its own.

    It takes any input without a fault that the sanitizers see, and leaves nothing behind for the next one. */
struct FuzzTarget
{
    using Run = void (*) (const std::uint8_t* data, std::size_t size);

    FuzzTarget (const char* name, Run run) { getAll()[name] = run; }

    static std::map<std::string, Run>& getAll()
    {
        static std::map<std::string, Run> targets;
        return targets;
    }
};

/** Ends the program, which is what a fuzzer notices, unless `isKept`. */
inline void promise (bool isKept)
{
    if (! isKept)
        std::abort();
}
