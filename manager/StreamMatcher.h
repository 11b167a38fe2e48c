// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LabelRuns.h"
#include "pod/PodManagerContract.h"

#include <array>
#include <optional>

namespace baylink
{

/** Finds what a listener's next block means in a pod's stream [the listener's audio thread].

    A listener's blocks are a stream as the pod's are. Host time runs through both alike, so one number, the offset from
    the listener's count of samples to the pod's, stays true until one side misses blocks that the other gets. The
    matcher takes the best first guess, goes on from block to block, and moves the offset only on proof: a label in the
    pod that cannot be, or a distance to the pod's end that the two never had. Since the listener lets its signal out
    `kMatchedLatency` samples late, it remembers which offset held for which of its samples, and mends a guess
    backwards before it is heard. */
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
        int longestBlock = 0;       // the same, of all that it ever wrote
        const LabelRuns& runs;
    };

    /** A part of the block that lies in one piece in the pod. */
    struct Stretch
    {
        int at = 0;               // index in the block
        std::int64_t place = 0;   // in the pod's stream; may lie outside of what there is
        int length = 0;
    };

    static constexpr int kMaxStretches = 6;

    struct Plan
    {
        std::array<Stretch, kMaxStretches> stretches {};
        int count = 0;

        const Stretch* begin() const noexcept { return stretches.data(); }
        const Stretch* end() const noexcept { return stretches.data() + count; }
    };

    /** Begins anew, with another pod or another stream of the same. */
    void reset() noexcept;

    /** Takes the next block. @returns where the samples lie that belong to it, `kMatchedLatency` before its place. */
    Plan match (const Block& block, const Pod& pod) noexcept;

private:
    using Verdict = LabelRuns::Verdict;

    /** The listener's samples `[start, end)` have the pod's `[start + offset, end + offset)` beside them. */
    struct Segment
    {
        std::int64_t start = 0, end = 0, offset = 0;
    };

    /** A block with where it was taken to lie; pending until the pod can tell whether it bears the label there. */
    struct Probe
    {
        std::int64_t asked = 0, place = 0, label = 0, lead = 0;
        int length = 0;
        bool pending = false;
    };

    /** How the host calls the two, as far as the last sure block showed it. */
    enum class Order
    {
        senderFirst,
        readerFirst,
        apart
    };

    /** Where the streams parted, if they did: from this sample of the listener on, or from this place of the pod on. */
    struct Break
    {
        std::int64_t asked = 0, place = 0;
    };

    /** What speaks for another offset: a label mends the last guess backwards, a lead only tells from when on. */
    enum class Reason
    {
        label,
        lead
    };

    /** How far a run is believed: to the last block that went on from another, or as far as the next ones may go on. */
    enum class Reach
    {
        proven,
        foretold
    };

    void anchor (const Block& block, const Pod& pod) noexcept;
    static std::int64_t guessPlace (const Block& block, const Pod& pod) noexcept;
    void follow (const Block& block, const Pod& pod) noexcept;
    void anchorAtStart (const Block& block, const Pod& pod) noexcept;
    void holdFromStart (std::int64_t place, const Block& block, const Pod& pod) noexcept;
    bool judgeLabel (const Block& block, const Pod& pod) noexcept;
    void judgeLead (const Block& block, const Pod& pod, bool labelMoved) noexcept;
    void agree (const Probe& block) noexcept;
    void noteOrder (int length, std::int64_t lead) noexcept;
    void moveTo (std::int64_t place, Break parted, Reason reason) noexcept;
    void holdAlways (std::int64_t offset) noexcept;
    void dropOldestSegment() noexcept;

    std::int64_t currentOffset() const noexcept { return segments[segmentCount - 1].offset; }
    bool isUsual (std::int64_t lead, const Pod& pod) const noexcept;
    std::int64_t usualPlace (const Block& block, const Pod& pod) const noexcept;
    static std::optional<std::int64_t> placeInNewestRun (const Block& block, const Pod& pod, Reach reach) noexcept;
    bool findPlace (const Block& block, const Pod& pod, bool usualOnly, std::int64_t& place) const noexcept;
    Plan makePlan (int length) const noexcept;

    std::array<Segment, kMaxStretches> segments {};   // oldest first, together without an end on either side
    int segmentCount = 0;                             // 0 while there is nothing to go by
    bool sure = false;                                // of the newest segment
    bool everSure = false;                            // of one since the first guess
    Break newestBreak;                                // before the newest segment

    std::int64_t asked = 0;         // samples that the listener asked for so far
    std::int64_t agreedUntil = 0;   // up to here the offset was right for certain
    std::int64_t lastWritten = 0;   // length of the pod at the last block
    std::int64_t lastLabel = 0;
    bool hasLastLabel = false;
    bool wasPlaying = false;
    Probe probe;

    // A lead is how far the pod's end lies ahead of the listener's place.
    std::int64_t lowestLead = 0, highestLead = 0, lastLead = 0;   // of sure blocks
    Order order = Order::senderFirst;
    int longestBlock = 0;   // that the listener ever asked for
};

}   // namespace baylink
