// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/aax/sdk/AAX_Host.h"

namespace AAXClasses
{

/** Tells the host of the one effect, with a type for each of its channel configurations. */
AAX_Result describe (AAX_ICollection& collection);

/** Adds one type to an effect.
    @param index which of the channel configurations */
AAX_Result describeType (AAX_IEffectDescriptor& effect, int index);

}   // namespace AAXClasses
