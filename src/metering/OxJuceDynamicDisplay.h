// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "metering/OxJuceObserver.h"

/** Mix-in of what shows an observer's level on every frame. */
class OxJuceDynamicDisplay
{
public:
    Relaxed<OxJuceObserver*> observer = nullptr;   // not owned; no other display reads it
};
