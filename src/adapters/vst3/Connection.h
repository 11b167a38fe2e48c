// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/vst3/SharedProcessor.h"

#include <public.sdk/source/vst/vstcomponentbase.h>

namespace Steinberg
{
namespace Vst
{

/** How a controller learns which processor is its own: by messages over the host's connection of the two.

    The component tells as soon as it is connected, and again when its controller asks, since hosts connect the two in
    either order, and some through a proxy that drops what comes before both ends are there. */
namespace connection
{

/** Names the processor to the peer of `component`. */
void tellProcessor (const ComponentBase& component, const SharedProcessor& processor);

/** Asks the peer of `controller` for its processor. */
void askForProcessor (const ComponentBase& controller);

/** @returns whether the message asks for the processor. */
bool asksForProcessor (IMessage* message);

/** @returns the processor that the message names, or null if it names none of this process. */
SharedProcessor::Ptr getToldProcessor (IMessage* message);

}   // namespace connection

}   // namespace Vst
}   // namespace Steinberg
