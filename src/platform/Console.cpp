// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Console.h"

#include <unistd.h>

namespace platform
{

bool isStandardOutputATerminal()
{
    return ::isatty (STDOUT_FILENO) == 1;
}

}   // namespace platform
