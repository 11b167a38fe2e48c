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
    the last block of a run, so what lies inside that block is a guess until the next block goes on from it.

    A query takes the length of the stream that the caller saw, and answers as if nothing was laid since. */
class LabelRuns
{
public:
    /** How a run begins, seen from the one before. */
    enum class Step : std::int64_t
    {
        jumps,
        jitters,   // off by so little that the host rounds its positions: both runs are one passage
        stands     // the label of the last block once more: the transport need not move
    };

    struct Run
    {
        std::int64_t place = 0, label = 0, lastBlock = 0, end = 0;   // the last two are places
        bool moves = false;                                          // more than a label that stands
        bool isFresh = false;   // one block that jumped: its label may stand from now on
        bool exact = false;     // neither it nor the next run jitters, so its label tells a place to the sample

        std::int64_t labelAt (std::int64_t at) const noexcept { return wrappedSum (label, at - place); }
    };

    /** Labels come from outside and may be any number: they are added and subtracted with wrap-around. */
    static std::int64_t wrappedSum (std::int64_t a, std::int64_t b) noexcept
    {
        return static_cast<std::int64_t> (static_cast<std::uint64_t> (a) + static_cast<std::uint64_t> (b));
    }

    static std::int64_t wrappedDifference (std::int64_t a, std::int64_t b) noexcept
    {
        return static_cast<std::int64_t> (static_cast<std::uint64_t> (a) - static_cast<std::uint64_t> (b));
    }

    /** @returns whether two labels differ by no more than `tolerance` samples. */
    static bool areNear (std::int64_t a, std::int64_t b, std::uint64_t tolerance) noexcept
    {
        return static_cast<std::uint64_t> (wrappedDifference (a, b)) + tolerance <= 2 * tolerance;
    }

    /** How far a position may be off where a host rounds. */
    static constexpr std::uint64_t kJitter = 1;   // samples

    /** Lays a block [the writer's thread]. */
    void lay (std::int64_t place, int length, std::int64_t label) noexcept;

    /** Forgets all runs [while nobody writes]. */
    void clear() noexcept;

    /** Gives the runs to `visit`, newest first, until it returns false. */
    template <typename Visit>
    void visitFromNewest (std::int64_t streamLength, Visit&& visit) const noexcept
    {
        const auto count = laid.load (std::memory_order_acquire);
        const auto first = firstKept.load (std::memory_order_acquire);

        auto next = Step::jumps;   // how the run behind begins

        for (auto index = count; index > first && count - index < kRuns; --index)
        {
            Run run;
            auto step = Step::jumps;

            if (! readRun (index - 1, run, step))
                return;

            run.end = std::min (run.end, streamLength);
            run.lastBlock = std::min (run.lastBlock, run.end);

            if (run.place >= run.end)
                continue;

            run.moves = run.lastBlock > run.place || (step != Step::stands && next != Step::stands);
            run.isFresh = index == count && run.lastBlock == run.place && step == Step::jumps;
            run.exact = step != Step::jitters && next != Step::jitters;
            next = step;

            if (! visit (const_cast<const Run&> (run)))
                return;
        }
    }

private:
    static constexpr std::uint64_t kRuns = 256;

    struct Entry
    {
        std::atomic<std::int64_t> place { 0 }, label { 0 }, lastBlock { 0 }, end { 0 };
        std::atomic<Step> step { Step::jumps };
    };

    bool readRun (std::uint64_t index, Run& run, Step& step) const noexcept;

    std::array<Entry, kRuns> entries;             // run i stands in entry i % kRuns
    std::atomic<std::uint64_t> claimed { 0 };     // runs begun; the entry of the newest may be changing
    std::atomic<std::uint64_t> laid { 0 };        // runs that can be read
    std::atomic<std::uint64_t> firstKept { 0 };   // runs before it belong to a former stream
};

}   // namespace baylink
