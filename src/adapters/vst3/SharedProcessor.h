// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/DuoJudgeProcessor.h"

namespace Steinberg
{
namespace Vst
{

/** What a component and its controller have in common: the one audio processor, and whether the host bypasses it.

    It goes with the last of those that hold it, and on the message thread, where its timer runs. */
class SharedProcessor
{
public:
    using Ptr = std::shared_ptr<SharedProcessor>;

    /** Makes a processor, which is the newest from now on [any thread with a `MessageThread::User`]. */
    static Ptr create();

    /** @returns the one that was made last, or null when it is gone. */
    static Ptr newest();

    /** @returns the one with this number, or null if it is not, or no longer, of this process. */
    static Ptr find (juce::int64 wantedNumber);

    DuoJudgeProcessor& get() const noexcept { return *processor; }

    const juce::int64 number;   // tells it from all others that this process ever had
    Relaxed<bool> bypass = false;

private:
    SharedProcessor (juce::int64 ownNumber, std::unique_ptr<DuoJudgeProcessor> newProcessor);

    std::unique_ptr<DuoJudgeProcessor> processor;
};

}   // namespace Vst
}   // namespace Steinberg
