// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace platform
{

/** @returns whether somebody watches the standard output on a terminal [any thread]. */
bool isStandardOutputATerminal();

}   // namespace platform
