// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>

/** Ring delay of one channel, worked through by block [audio thread; only construction allocates].

    The output of a block is that of storing each sample and reading the one `delay` samples before it, in turn. */
template <typename Sample>
class CDelayFilter
{
public:
    explicit CDelayFilter (std::int32_t capacityInSamples) :
        capacity (capacityInSamples), buffer (std::make_unique<Sample[]> (static_cast<std::size_t> (capacity) + 1))
    {
    }

    virtual ~CDelayFilter() = default;

    CDelayFilter (const CDelayFilter&) = delete;
    CDelayFilter& operator= (const CDelayFilter&) = delete;

    /** Samples from input to output, cut to 0 to the capacity. */
    void setDelay (std::int32_t samples) noexcept { delay = std::clamp (samples, std::int32_t { 0 }, capacity); }
    std::int32_t getDelay() const noexcept { return delay; }

    /** Stores a block without taking the delayed one out. */
    void push (const Sample* input, int numSamples) noexcept
    {
        for (int done = 0; done < numSamples;)
        {
            const auto run = std::min (numSamples - done, ringSize());
            store (input + done, run);
            done += run;
        }
    }

    /** Replaces a block by what lies `delay` samples before it. */
    void process (Sample* samples, int numSamples) noexcept
    {
        for (int done = 0; done < numSamples;)
        {
            // A run may not overwrite what its own first sample is to read.
            const auto run = std::min (numSamples - done, ringSize() - delay);
            store (samples + done, run);
            fetch (samples + done, run);
            done += run;
        }
    }

private:
    int ringSize() const noexcept { return capacity + 1; }

    void store (const Sample* input, int numSamples) noexcept
    {
        const auto start = position + 1 < ringSize() ? position + 1 : 0;
        const auto untilEnd = std::min (numSamples, ringSize() - start);
        std::copy_n (input, untilEnd, buffer.get() + start);
        std::copy_n (input + untilEnd, numSamples - untilEnd, buffer.get());
        position = numSamples > untilEnd ? numSamples - untilEnd - 1 : start + numSamples - 1;
    }

    void fetch (Sample* output, int numSamples) const noexcept
    {
        auto start = position - delay - (numSamples - 1);

        while (start < 0)
            start += ringSize();

        const auto untilEnd = std::min (numSamples, ringSize() - start);
        std::copy_n (buffer.get() + start, untilEnd, output);
        std::copy_n (buffer.get(), numSamples - untilEnd, output + untilEnd);
    }

    std::int32_t capacity, delay = 0;
    std::unique_ptr<Sample[]> buffer;   // capacity + 1 samples, silent at first
    std::int32_t position = 0;          // of the sample stored last
};
