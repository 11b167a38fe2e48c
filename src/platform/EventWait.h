// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace platform
{

/** Sleeps until one of the open descriptors can be read or hangs up [any thread].
    @returns those that can, in their order; none when `timeoutMs` milliseconds have passed */
std::vector<int> waitForInput (const std::vector<int>& descriptors, int timeoutMs);

}   // namespace platform
