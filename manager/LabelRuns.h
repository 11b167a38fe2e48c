// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>

namespace baylink
{

/** Where timeline positions were laid in a stream: a short table that one thread writes and any number read.

    A *place* counts samples of the stream from its beginning, a *label* is the timeline position of a block.
    Blocks whose labels follow on make one run. Only the starts of blocks bear witness: the host may have jumped inside
    the last block of a run, and one that stands still repeats its label, so what lies inside that block is a guess
    until the next block goes on from it.

    Every query takes the length of the stream that the caller saw, and answers as if nothing was laid since. */
class LabelRuns
{
public:
    /** What the table says of a label at a place. */
    enum class Verdict
    {
        agrees,        // the place bears the label
        contradicts,   // it certainly bears another
        open,          // not written yet, or inside the newest block: later blocks will tell
        unknown        // nobody will tell: no label was laid there, or it is forgotten
    };

    struct Run
    {
        std::int64_t place = 0, label = 0, lastBlock = 0, end = 0;   // the last two are places

        std::int64_t labelAt (std::int64_t at) const noexcept;

        /** @returns the place of `wanted` counted on from the beginning of the run, however far. */
        std::int64_t placeOf (std::int64_t wanted) const noexcept;
    };

    /** Lays a block [the writer's thread]. */
    void lay (std::int64_t place, int length, std::int64_t label) noexcept;

    /** Forgets all runs [while nobody writes]. */
    void clear() noexcept;

    Verdict check (std::int64_t place, std::int64_t label, std::int64_t streamLength) const noexcept;

    /** Gives the runs to `visit`, newest first, until it returns false. */
    template <typename Visit>
    void visitFromNewest (std::int64_t streamLength, Visit&& visit) const noexcept
    {
        const auto count = laid.load (std::memory_order_acquire);
        const auto first = firstKept.load (std::memory_order_acquire);

        for (auto index = count; index > first && count - index < kRuns; --index)
        {
            Run run;

            if (! readRun (index - 1, run))
                return;

            run.end = std::min (run.end, streamLength);

            if (run.place < run.end && ! visit (const_cast<const Run&> (run)))
                return;
        }
    }

private:
    static constexpr std::uint64_t kRuns = 64;

    struct Entry
    {
        std::atomic<std::int64_t> place { 0 }, label { 0 }, lastBlock { 0 }, end { 0 };
    };

    bool readRun (std::uint64_t index, Run& run) const noexcept;

    std::array<Entry, kRuns> entries;             // run i stands in entry i % kRuns
    std::atomic<std::uint64_t> claimed { 0 };     // runs begun; the entry of the newest may be changing
    std::atomic<std::uint64_t> laid { 0 };        // runs that can be read
    std::atomic<std::uint64_t> firstKept { 0 };   // runs before it belong to a former stream
};

}   // namespace baylink
