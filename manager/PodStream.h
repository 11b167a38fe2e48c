// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AudioRing.h"
#include "LabelRuns.h"

namespace baylink
{

/** A pod's running stream: its audio, and the timeline positions that were laid in it.

    Streams are never freed while the manager lives, so that a reader in mid-copy of a pod that leaves stays on firm
    ground; they serve later pods instead. `age` tells one life of a stream from the next. */
class PodStream
{
public:
    /** Keeps a stream with its writer while it writes, so that it is not begun anew under its hands.

        The owner of the stream withdraws it first and begins it anew only while nobody is writing; the writer says
        that it writes and looks afterwards whether the stream is still its own. */
    class Writing
    {
    public:
        explicit Writing (PodStream& streamToWrite) noexcept : stream (streamToWrite) { ++stream.writers; }
        ~Writing() { stream.writers.fetch_sub (1, std::memory_order_release); }

        Writing (const Writing&) = delete;
        Writing& operator= (const Writing&) = delete;

    private:
        PodStream& stream;
    };

    explicit PodStream (int numChannels) : ring (numChannels) {}

    /** Begins another life, empty [while nobody writes]. @param newAge differs from every other stream's, and not 0 */
    void begin (std::uint64_t newAge) noexcept;

    /** Appends a block [the writer's thread, inside `Writing`]. @param label null for a block without a position */
    void write (const float* const* channels, int numSamples, const std::int64_t* label) noexcept;

    bool isWriting() const noexcept { return writers != 0; }
    std::uint64_t age() const noexcept { return currentAge.load (std::memory_order_acquire); }
    int numChannels() const noexcept { return ring.numChannels(); }

    /** @returns samples since the stream began [any thread]. */
    std::int64_t written() const noexcept;

    /** The last block that was written, in samples. */
    int latestBlock() const noexcept { return latest.load (std::memory_order_acquire); }

    const LabelRuns& labels() const noexcept { return runs; }

    /** As `AudioRing::read`, with a place counted from the beginning of the stream [any thread]. */
    void read (float* const* channels, int offset, std::int64_t place, int numSamples) const noexcept;

private:
    AudioRing ring;
    LabelRuns runs;
    std::atomic<int> writers { 0 };   // more than one only while a former owner finds out that it lost the stream
    std::atomic<std::uint64_t> currentAge { 0 };
    std::atomic<std::int64_t> base { 0 };   // position in the ring where this life began
    std::atomic<int> latest { 0 };
};

}   // namespace baylink
