// SPDX-License-Identifier: GPL-3.0-or-later
#include "LabelRuns.h"

namespace baylink
{
namespace
{

/** Labels come from outside and may be any number: they are added and subtracted with wrap-around. */
std::int64_t wrappedSum (std::int64_t a, std::int64_t b) noexcept
{
    return static_cast<std::int64_t> (static_cast<std::uint64_t> (a) + static_cast<std::uint64_t> (b));
}

std::int64_t wrappedDifference (std::int64_t a, std::int64_t b) noexcept
{
    return static_cast<std::int64_t> (static_cast<std::uint64_t> (a) - static_cast<std::uint64_t> (b));
}

}   // namespace

std::int64_t LabelRuns::Run::labelAt (std::int64_t at) const noexcept
{
    return wrappedSum (label, at - place);
}

std::int64_t LabelRuns::Run::placeOf (std::int64_t wanted) const noexcept
{
    return wrappedSum (place, wrappedDifference (wanted, label));
}

void LabelRuns::lay (std::int64_t place, int length, std::int64_t label) noexcept
{
    const auto count = laid.load (std::memory_order_relaxed);

    if (count > firstKept.load (std::memory_order_relaxed))
    {
        auto& entry = entries[(count - 1) % kRuns];
        const Run last { entry.place.load (std::memory_order_relaxed), entry.label.load (std::memory_order_relaxed), 0,
                         entry.end.load (std::memory_order_relaxed) };

        if (last.end == place && last.labelAt (place) == label)
        {
            entry.lastBlock.store (place, std::memory_order_release);
            entry.end.store (place + length, std::memory_order_release);
            return;
        }
    }

    auto& entry = entries[count % kRuns];
    claimed.store (count + 1, std::memory_order_relaxed);
    entry.place.store (place, std::memory_order_release);
    entry.label.store (label, std::memory_order_release);
    entry.lastBlock.store (place, std::memory_order_release);
    entry.end.store (place + length, std::memory_order_release);
    laid.store (count + 1, std::memory_order_release);
}

void LabelRuns::clear() noexcept
{
    firstKept.store (laid.load (std::memory_order_relaxed), std::memory_order_release);
}

bool LabelRuns::readRun (std::uint64_t index, Run& run) const noexcept
{
    const auto& entry = entries[index % kRuns];
    run.place = entry.place.load (std::memory_order_acquire);
    run.label = entry.label.load (std::memory_order_acquire);
    run.end = entry.end.load (std::memory_order_acquire);
    run.lastBlock = entry.lastBlock.load (std::memory_order_acquire);
    return claimed.load (std::memory_order_relaxed) <= index + kRuns;
}

LabelRuns::Verdict LabelRuns::check (std::int64_t place, std::int64_t label, std::int64_t streamLength) const noexcept
{
    if (place >= streamLength)
        return Verdict::open;

    auto verdict = Verdict::unknown;

    visitFromNewest (streamLength,
                     [&] (const Run& run)
                     {
                         if (place < run.place)
                             return true;

                         if (place >= run.end)
                             return false;

                         if (run.labelAt (place) == label)
                             verdict = Verdict::agrees;
                         else if (place <= run.lastBlock)
                             verdict = Verdict::contradicts;
                         else if (run.end == streamLength)
                             verdict = Verdict::open;

                         return false;
                     });

    return verdict;
}

}   // namespace baylink
