// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/Ballot.h"

#include <algorithm>

Ballot::State::State (std::uint64_t bits) noexcept :
    phase (static_cast<Phase> (bits >> kPhaseShift)), votesForA (static_cast<int> (bits >> kCountBits & kMaxCount)),
    votesForB (static_cast<int> (bits & kMaxCount))
{
}

std::uint64_t Ballot::State::toWord() const noexcept
{
    const auto toBits = [] (int votes) { return std::min (static_cast<std::uint64_t> (votes), kMaxCount); };
    return static_cast<std::uint64_t> (phase) << kPhaseShift | toBits (votesForA) << kCountBits | toBits (votesForB);
}

/** Lets `tryTo` change the state until nobody has come in between. @returns false once it has nothing to change */
template <typename Change>
bool Ballot::change (Change&& tryTo) noexcept
{
    for (auto now = word.load();;)
    {
        State state (now);

        if (! tryTo (state))
            return false;

        if (word.compare_exchange_weak (now, state.toWord()))
            return true;
    }
}

bool Ballot::advance (Phase from, Phase to) noexcept
{
    return change ([=] (State& state) { return state.phase == from && (state.phase = to, true); });
}

void Ballot::press() noexcept
{
    advance (Phase::idle, Phase::pressed);
}

bool Ballot::release (bool forB) noexcept
{
    return change (
        [forB] (State& state)
        {
            if (state.phase != Phase::pressed)
                return false;

            state.phase = Phase::cast;
            ++(forB ? state.votesForB : state.votesForA);
            return true;
        });
}

void Ballot::disarm() noexcept
{
    advance (Phase::pressed, Phase::idle);
}

void Ballot::endFade() noexcept
{
    // The audio thread may take the vote up in between.
    if (! advance (Phase::cast, Phase::idle))
        advance (Phase::falling, Phase::rising);
}

void Ballot::clear() noexcept
{
    change (
        [] (State& state)
        {
            state.phase = state.phase < Phase::falling ? Phase::idle : Phase::rising;
            state.votesForA = state.votesForB = 0;
            return true;
        });
}

VoteStatistics Ballot::getStatistics() const noexcept
{
    const State now (word.load());
    return { now.votesForA + now.votesForB, now.votesForA, now.votesForB };
}
