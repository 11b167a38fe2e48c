// SPDX-License-Identifier: GPL-3.0-or-later
// Entries of an old format that some hosts look for before they try the others: they are there, and give nothing.
#include "adapters/Export.h"

#include <cstdint>

DUO_EXPORT std::intptr_t NewPlugIn();

std::intptr_t NewPlugIn()
{
    return 0;
}

DUO_EXPORT [[gnu::alias ("NewPlugIn")]] std::intptr_t
_PI_GetRoutineDescriptor();   // NOLINT(bugprone-reserved-identifier)
