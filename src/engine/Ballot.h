// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/VoteStatistics.h"

#include <atomic>
#include <cstdint>

/** The votes of a blind test, and where the one stands that is being cast [any thread].

    A vote is an event: a press arms it, the release of what is armed casts it, and until its fade is over there is no other.
    All of it lies in one word that changes in one step, so that no vote is lost, counted twice, or counted behind the end of
    its test, whoever meets here. */
class Ballot
{
public:
    enum class Phase : std::uint8_t
    {
        idle,
        pressed,   // armed: the release counts
        cast,      // counted; no block has heard of it yet
        falling,   // the fade sinks to the draw
        rising     // behind the draw, or broken off
    };

    /** Nothing while a vote is under way. */
    void press() noexcept;

    /** @returns whether it cast a vote */
    bool release (bool forB) noexcept;

    /** The release that is to come counts for nothing. */
    void disarm() noexcept;

    /** A fade under way rises from where it is, without a draw; one that no block has heard of is forgotten. */
    void endFade() noexcept;

    /** Back to no votes: whatever is under way is ended, too. */
    void clear() noexcept;

    /** Goes on in the fade. @returns false where somebody else has gone on from `from` */
    bool advance (Phase from, Phase to) noexcept;

    Phase getPhase() const noexcept { return static_cast<Phase> (word.load() >> kPhaseShift); }
    bool isFading() const noexcept { return getPhase() >= Phase::cast; }
    VoteStatistics getStatistics() const noexcept;

private:
    static constexpr int kCountBits = 30, kPhaseShift = 2 * kCountBits;
    static constexpr std::uint64_t kMaxCount = (std::uint64_t { 1 } << kCountBits) - 1;

    /** The content of the word. The sum of both counts is that of the votes, and both stand at their limits. */
    struct State
    {
        explicit State (std::uint64_t word) noexcept;
        std::uint64_t toWord() const noexcept;

        Phase phase;
        int votesForA, votesForB;
    };

    template <typename Change>
    bool change (Change&& tryTo) noexcept;

    std::atomic<std::uint64_t> word { 0 };
};
