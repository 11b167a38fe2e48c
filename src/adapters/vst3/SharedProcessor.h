// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/AdaptedProcessor.h"

namespace Steinberg
{
namespace Vst
{

/** What a component and its controller have in common: the one audio processor. It goes with the last of those that hold
    it. */
class SharedProcessor : public AdaptedProcessor
{
public:
    using Ptr = std::shared_ptr<SharedProcessor>;

    /** Makes a processor, which is the newest from now on [any thread with a `MessageThread::User`]. */
    static Ptr create();

    /** @returns the one that was made last, or null when it is gone. */
    static Ptr newest();

    /** @returns the one with this number, or null if it is not, or no longer, of this process. */
    static Ptr find (juce::int64 wantedNumber);

    const juce::int64 number;   // tells it from all others that this process ever had

private:
    explicit SharedProcessor (juce::int64 ownNumber);
};

}   // namespace Vst
}   // namespace Steinberg
