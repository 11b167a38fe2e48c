// SPDX-License-Identifier: GPL-3.0-or-later
#include "LabelRuns.h"

namespace baylink
{

void LabelRuns::lay (std::int64_t place, int length, std::int64_t label) noexcept
{
    const auto count = laid.load (std::memory_order_relaxed);
    auto step = Step::jumps;

    if (count > firstKept.load (std::memory_order_relaxed))
    {
        auto& entry = entries[(count - 1) % kRuns];
        Run last;
        last.place = entry.place.load (std::memory_order_relaxed);
        last.label = entry.label.load (std::memory_order_relaxed);

        if (entry.end.load (std::memory_order_relaxed) == place)
        {
            if (last.labelAt (place) == label)
            {
                entry.lastBlock.store (place, std::memory_order_release);
                entry.end.store (place + length, std::memory_order_release);
                return;
            }

            if (last.labelAt (entry.lastBlock.load (std::memory_order_relaxed)) == label)
                step = Step::stands;
            else if (areNear (last.labelAt (place), label, 2 * kJitter))
                step = Step::jitters;
        }
    }

    auto& entry = entries[count % kRuns];
    claimed.store (count + 1, std::memory_order_relaxed);
    entry.place.store (place, std::memory_order_release);
    entry.label.store (label, std::memory_order_release);
    entry.lastBlock.store (place, std::memory_order_release);
    entry.end.store (place + length, std::memory_order_release);
    entry.step.store (step, std::memory_order_release);
    laid.store (count + 1, std::memory_order_release);
}

void LabelRuns::clear() noexcept
{
    firstKept.store (laid.load (std::memory_order_relaxed), std::memory_order_release);
}

bool LabelRuns::readRun (std::uint64_t index, Run& run, Step& step) const noexcept
{
    const auto& entry = entries[index % kRuns];
    run.place = entry.place.load (std::memory_order_acquire);
    run.label = entry.label.load (std::memory_order_acquire);
    run.end = entry.end.load (std::memory_order_acquire);
    run.lastBlock = entry.lastBlock.load (std::memory_order_acquire);
    step = entry.step.load (std::memory_order_acquire);
    return claimed.load (std::memory_order_relaxed) <= index + kRuns;
}

}   // namespace baylink
