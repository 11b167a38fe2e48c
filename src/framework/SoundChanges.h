// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/OxParamRecord.h"

/** Changes of normal parameters that were made in the sound, on their way to the history and the host.

    The history gets each of them, oldest first, through a queue. Where that is full, the changes of a parameter become one,
    from the value before the first to the one after the last, which comes behind the queue. The host gets the value that
    stands when somebody comes to tell it, once. */
class SoundChanges
{
public:
    static constexpr int kCapacity = 256;   // changes

    SoundChanges();

    /** Adds a change for the history [any thread, the audio thread too]. Nobody is waited for. */
    void add (int id, float before, float after) noexcept;

    /** Hands every change to `hear (id, before, after)` [one thread at a time]. */
    template <typename Hear>
    void drain (Hear&& hear)
    {
        const auto hadOverflow = anyOverflowed.exchange (false);

        for (Change change; takeFromQueue (change);)
            hear (change.id, change.before, change.after);

        // One that is older may be just on its way into the queue.
        if (hadOverflow && nextWritten != nextRead)
            anyOverflowed = true;
        else if (hadOverflow)
            for (int id = 0; id < kMaxParams; ++id)
                if (const auto span = records[static_cast<std::size_t> (id)].overflow.exchange ({}); ! span.isNone())
                    hear (id, span.before, span.after);
    }

    /** The host has yet to hear of a parameter [any thread, the audio thread too]. */
    void setUntold (int id) noexcept;

    /** Calls `tell (id)` for each parameter below `numParams` that the host has yet to hear of [any thread, the audio thread
        too]. From where it gives true the parameter counts as told, by this thread alone. */
    template <typename Tell>
    void takeUntold (int numParams, Tell&& tell)
    {
        if (! anyUntold.load (std::memory_order_relaxed) || ! anyUntold.exchange (false))
            return;

        for (int id = 0; id < numParams; ++id)
            if (records[static_cast<std::size_t> (id)].untold.exchange (false) && ! tell (id))
                setUntold (id);
    }

private:
    struct Change
    {
        int id = 0;
        float before = 0.0f, after = 0.0f;
    };

    /** Free for the writer whose turn it is, and full with the turn after it. */
    struct Cell
    {
        std::atomic<juce::uint32> turn { 0 };
        Change change;
    };

    /** From one value to another; from that which no parameter has to itself means no change. */
    struct Span
    {
        float before = kNeverWritten, after = kNeverWritten;
        bool isNone() const noexcept { return before == kNeverWritten && after == kNeverWritten; }
    };

    static_assert (std::atomic<Span>::is_always_lock_free);

    struct Record
    {
        std::atomic<bool> untold { false };
        std::atomic<Span> overflow { Span {} };   // all that has come since the queue was full
    };

    bool takeFromQueue (Change& change) noexcept;
    bool push (const Change& change) noexcept;

    std::array<Cell, kCapacity> cells;
    std::atomic<juce::uint32> nextWritten { 0 };
    juce::uint32 nextRead = 0;   // of the thread that drains
    std::atomic<bool> anyOverflowed { false }, anyUntold { false };
    std::array<Record, kMaxParams> records;
};
