// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/AudioThreadGuard.h"

/** Something that an audio thread must not do, and what the guard is to make of it. */
struct GuardProbe
{
    const char* deed;
    void (*perform)();
    AudioThreadGuard::Counts expected;
};
