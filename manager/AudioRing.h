// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

namespace baylink
{

/** The last `kCapacity` samples of one stream: one thread writes, any number read, and nobody waits.

    Positions count samples since the ring was made; they never run backwards, not even over a restart, so a reader
    always knows whether what it copied was being replaced meanwhile. Two samples of a channel share one atomic word. */
class AudioRing
{
public:
    static constexpr int kCapacity = 65536;   // samples a channel

    /** Takes its memory at once. @param numChannels at least 1 */
    explicit AudioRing (int numChannels);

    /** Appends a block [the writer's thread]. Of a block longer than the ring its end is kept.
        @param channels one array per channel; a null one stands for silence */
    void write (const float* const* channels, int numSamples) noexcept;

    /** Leaves all that was written behind, out of every reader's reach [while nobody writes]. */
    void restart() noexcept;

    /** Copies what the ring holds of `[from, from + numSamples)` to `channels`, sample `from` to index `offset`
        [any thread]. What it does not hold stays as it was; what the writer took away during the copy is cleared.
        @param channels one array per channel; a null one is left out */
    void read (float* const* channels, int offset, std::int64_t from, int numSamples) const noexcept;

    /** @returns the position behind the last complete block [any thread]. */
    std::int64_t end() const noexcept { return written.load (std::memory_order_acquire); }

    int numChannels() const noexcept { return channelCount; }

private:
    using Word = std::atomic<std::uint64_t>;

    const Word* channelWords (int channel) const noexcept;
    Word* channelWords (int channel) noexcept;
    void writeChannel (Word* words, const float* source, std::int64_t from, int numSamples) noexcept;

    const int channelCount;
    const std::unique_ptr<Word[]> words;
    alignas (64) std::atomic<std::int64_t> claimed { kCapacity };   // up to here samples may be changing
    std::atomic<std::int64_t> written { kCapacity };                // up to here they are whole
};

}   // namespace baylink
