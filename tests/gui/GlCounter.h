// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>

/** Stands between the program and OpenGL for the calls that drawing makes: counts them by name and passes them on, or, for
    measuring what drawing costs without any driver, does not. For one thread at a time. */
struct GlCounter
{
    static inline bool counts = false, passesOn = true;
    static inline std::map<std::string, int> calls;
};
