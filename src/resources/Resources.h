// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace resources
{

/** The files embedded in the program [any thread].
    @param name the file's name with an underscore for the dot, like "ButtonMid_png"
    @returns the bytes, and their number in `size`; null and 0 if there is no such file. */
const char* getNamedResource (const char* name, int& size);

}   // namespace resources
