// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/SoundChanges.h"

SoundChanges::SoundChanges()
{
    for (juce::uint32 turn = 0; turn < kCapacity; ++turn)
        cells[turn].turn = turn;
}

void SoundChanges::add (int id, float before, float after) noexcept
{
    auto& overflow = records[static_cast<std::size_t> (id)].overflow;
    auto span = overflow.load();

    // Once a change did not fit, those of this parameter stay together, so that none overtakes it.
    if (span.isNone() && push ({ id, before, after }))
        return;

    while (! overflow.compare_exchange_weak (span, { span.isNone() ? before : span.before, after }))
    {
    }

    anyOverflowed = true;
}

void SoundChanges::setUntold (int id) noexcept
{
    records[static_cast<std::size_t> (id)].untold = true;
    anyUntold = true;
}

bool SoundChanges::push (const Change& change) noexcept
{
    for (auto turn = nextWritten.load (std::memory_order_relaxed);;)
    {
        auto& cell = cells[turn % kCapacity];
        const auto ahead = static_cast<juce::int32> (cell.turn.load (std::memory_order_acquire) - turn);

        if (ahead < 0)
            return false;   // not read yet

        if (ahead > 0)
            turn = nextWritten.load (std::memory_order_relaxed);
        else if (nextWritten.compare_exchange_weak (turn, turn + 1, std::memory_order_relaxed))
        {
            cell.change = change;
            cell.turn.store (turn + 1, std::memory_order_release);
            return true;
        }
    }
}

bool SoundChanges::takeFromQueue (Change& change) noexcept
{
    auto& cell = cells[nextRead % kCapacity];

    if (cell.turn.load (std::memory_order_acquire) != nextRead + 1)
        return false;

    change = cell.change;
    cell.turn.store (nextRead++ + kCapacity, std::memory_order_release);
    return true;
}
