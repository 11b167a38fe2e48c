// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** Stands between the program and OpenGL for the calls that drawing makes and passes them on, or, for measuring what drawing
    costs without any driver, does not. For one thread at a time. */
struct GlSwitch
{
    static inline bool passesOn = true;
};
