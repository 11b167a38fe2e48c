// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LabelRuns.h"
#include "RecentRange.h"
#include "pod/PodManagerContract.h"

#include <optional>

namespace baylink
{

/** Finds what a listener's next block means in a pod's stream [the listener's audio thread].

    A listener's blocks are a stream as the pod's are. Host time runs through both alike, so one number, the offset from
    the listener's count of samples to the pod's, stays true until one side misses blocks that the other gets. The matcher
    keeps the listener's last samples as pieces, each at one offset or nowhere, and looks again at every piece until it is
    heard, which is `kMatchedLatency` samples after it came: by then the pod mostly tells whether it bears the labels. */
class StreamMatcher
{
public:
    /** The listener's block. */
    struct Block
    {
        int length = 0;   // samples
        bool labelled = false;
        std::int64_t label = 0;   // timeline position of the first sample
        bool playing = false;     // the host says so
    };

    /** The pod as the listener sees it now. */
    struct Pod
    {
        std::int64_t written = 0;   // samples since the stream began
        int latestBlock = 0;        // that the sender wrote, in samples
        const LabelRuns& runs;
    };

    /** A part of the block that lies in one piece in the pod. */
    struct Stretch
    {
        int at = 0;               // index in the block
        std::int64_t place = 0;   // in the pod's stream; may lie outside of what there is
        int length = 0;
    };

    static constexpr int kMaxPieces = 64;

    struct Plan
    {
        std::array<Stretch, kMaxPieces> stretches;
        int count = 0;

        const Stretch* begin() const noexcept { return stretches.data(); }
        const Stretch* end() const noexcept { return stretches.data() + count; }
    };

    /** Begins anew, with another pod or another stream of the same. */
    void reset() noexcept { *this = {}; }

    /** Takes the next block. @returns where the samples lie that belong to it, `kMatchedLatency` before its place. */
    Plan match (const Block& block, const Pod& pod) noexcept;

private:
    /** What is known of where a piece lies; `docs/pod-timing.md` has the table of what leads from one to another. */
    enum class State
    {
        nowhere,   // it is silent
        guessed,   // at an offset that nothing has proven yet
        counted,   // at an offset that was proven, or usual, before it
        proven     // the pod bears its label there
    };

    static constexpr std::int64_t kForever = std::int64_t { 1 } << 60;

    /** Samples of the listener that go on from one another. */
    struct Piece
    {
        std::int64_t start = 0, end = 0;
        std::int64_t lastBlock = 0;   // the block that was added last begins here: what follows is not known to go on
        std::int64_t label = 0;       // of the start
        bool moves = false;           // bears labels that tell places; else they are missing, or stand
        State state = State::nowhere;
        std::int64_t offset = 0;
        std::int64_t firstPlace = -kForever, endPlace = kForever;   // in the pod, beyond which it has nothing for it
        std::int64_t agreedTo = -kForever;    // the last place where the pod was seen to bear its label
        std::int64_t pace = 0, written = 0;   // when it came, see below

        std::int64_t labelAt (std::int64_t sample) const noexcept
        {
            return LabelRuns::wrappedSum (label, sample - start);
        }
    };

    /** What the pod's labels say of a piece at its offset. */
    struct Evidence
    {
        bool agrees = false;
        std::int64_t agreedTo = -kForever, contradictedFrom = kForever;   // places
    };

    /** A place in the pod that bears a label. */
    struct Find
    {
        std::int64_t offset = 0, firstPlace = -kForever, distance = kForever;
        bool certain = false;       // else it may be a sample or two off, or the host may have jumped before it
        bool beginsAlike = false;   // piece and run both begin there

        /** The better one comes first. */
        bool operator<(const Find& other) const noexcept
        {
            if (beginsAlike != other.beginsAlike)
                return beginsAlike;

            return distance != other.distance ? distance < other.distance : certain && ! other.certain;
        }
    };

    void takeIn (const Block& block, const Pod& pod) noexcept;
    void begin (std::int64_t sample, std::int64_t label, bool moves) noexcept;
    Piece& insert (int index, const Piece& piece) noexcept;
    Piece& splitAt (int index, std::int64_t sample) noexcept;

    void guess (const Block& block, const Pod& pod) noexcept;
    void guessAtStart (const Block& block, const Pod& pod) noexcept;
    void settle (int index, const Pod& pod) noexcept;
    void prove (int index) noexcept;
    void watchLead (int length, const Pod& pod) noexcept;
    void moveNewest (std::int64_t offset) noexcept;
    void forgetHeard (const Pod& pod) noexcept;

    static Evidence compare (const Piece& piece, const Pod& pod) noexcept;
    std::optional<Find> search (Piece piece, int index, const Pod& pod) const noexcept;
    std::optional<Find> findIn (const LabelRuns::Run& run, const Piece& piece, std::int64_t floor, std::int64_t sample,
                                std::int64_t label, const Pod& pod) const noexcept;
    std::int64_t floorOf (int index, const LabelRuns::Run& run) const noexcept;
    std::int64_t usualLead (int length) const noexcept { return senderFirst ? length : *lastLead; }
    std::int64_t leadDistance (std::int64_t lead) const noexcept;
    std::int64_t reach() const noexcept { return longestBlock.high() + longestPodBlock.high(); }
    Plan makePlan (int length, const Pod& pod) const noexcept;

    std::array<Piece, kMaxPieces> pieces;   // oldest first, without gaps between
    int count = 0;

    std::int64_t asked = 0;         // samples that the listener asked for so far
    std::int64_t lastWritten = 0;   // length of the pod at the last block
    Piece heard;                    // that agreed last of those that are heard
    std::int64_t startedAt = -1;    // the listener's sample at which the host began to play, until that is settled
    std::int64_t lastLabel = 0;
    int exactBlocks = 0;   // of the listener that went on to the sample, since one that did not
    bool hasLastLabel = false, wasPlaying = false;

    // The lead of an offset is how far the pod's end lay ahead of the listener's place when the pod had just gone on.
    std::int64_t pace = 0;   // the pod's length less the listener's, then: the lead of the offset 0
    std::optional<std::int64_t> lastLead;
    bool senderFirst = false;               // as the last lead has it: then a lead is as long as the listener's block
    std::int64_t offsetBefore = kForever;   // before it was last given up for the usual lead
    RecentRange leads;                      // of proven pieces, lately
    RecentRange longestBlock, longestPodBlock;   // lately
};

}   // namespace baylink
