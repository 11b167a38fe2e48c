// SPDX-License-Identifier: GPL-3.0-or-later
#include "AudioRing.h"

#include "platform/SharedWords.h"

#include <algorithm>
#include <cstring>

namespace baylink
{
namespace
{

constexpr int kSamplesPerWord = 2;
constexpr int kWordsPerChannel = AudioRing::kCapacity / kSamplesPerWord;

struct Pair
{
    std::uint32_t samples[kSamplesPerWord];
};

static_assert (sizeof (Pair) == sizeof (std::uint64_t) && sizeof (float) == sizeof (std::uint32_t));

template <typename To, typename From>
To bitsOf (const From& from) noexcept
{
    static_assert (sizeof (To) == sizeof (From));
    To to;
    std::memcpy (&to, &from, sizeof (To));
    return to;
}

/** Calls `step (index in the ring, index in the block, length)` for the one or two stretches that lie in one piece. */
template <typename Step>
void forEachPiece (std::int64_t from, int numSamples, Step&& step) noexcept
{
    for (int done = 0; done < numSamples;)
    {
        const auto index = static_cast<int> ((from + done) % AudioRing::kCapacity);
        const auto length = std::min (numSamples - done, AudioRing::kCapacity - index);
        step (index, done, length);
        done += length;
    }
}

void copyOut (const std::atomic<std::uint64_t>* word, int parity, float* target, int numSamples) noexcept
{
    // In acquire order, so that a look at `claimed` after the copy tells of every word that was replaced during it.
    if (parity != 0 && numSamples > 0)
    {
        const auto pair = bitsOf<Pair> ((word++)->load (std::memory_order_acquire));
        std::memcpy (target++, &pair.samples[1], sizeof (float));
        --numSamples;
    }

    const auto whole = numSamples / kSamplesPerWord;
    platform::sharedWords::load (word, target, whole);

    if (numSamples % kSamplesPerWord > 0)
    {
        const auto pair = bitsOf<Pair> (word[whole].load (std::memory_order_acquire));
        std::memcpy (target + whole * kSamplesPerWord, &pair.samples[0], sizeof (float));
    }
}

}   // namespace

AudioRing::AudioRing (int numChannels) :
    channelCount (numChannels), words (new Word[static_cast<std::size_t> (numChannels) * kWordsPerChannel]())
{
}

void AudioRing::write (const float* const* channels, int numSamples) noexcept
{
    const auto start = written.load (std::memory_order_relaxed);
    const auto skipped = std::max (0, numSamples - kCapacity);
    claimed.store (start + numSamples, std::memory_order_relaxed);

    for (int channel = 0; channel < channelCount; ++channel)
    {
        const auto* const source = channels[channel];
        writeChannel (channelWords (channel), source == nullptr ? nullptr : source + skipped, start + skipped,
                      numSamples - skipped);
    }

    written.store (start + numSamples, std::memory_order_release);
}

void AudioRing::writeChannel (Word* channel, const float* source, std::int64_t from, int numSamples) noexcept
{
    // Release, so that whoever sees one of these words also sees the claim that went before it.
    const auto replace = [source] (Word& word, int half, int index)
    {
        auto pair = bitsOf<Pair> (word.load (std::memory_order_relaxed));
        pair.samples[half] = source == nullptr ? 0 : bitsOf<std::uint32_t> (source[index]);
        word.store (bitsOf<std::uint64_t> (pair), std::memory_order_release);
    };

    forEachPiece (from, numSamples,
                  [&] (int ringIndex, int blockIndex, int length)
                  {
                      auto* word = channel + ringIndex / kSamplesPerWord;
                      auto index = blockIndex;
                      const auto last = blockIndex + length;

                      if (ringIndex % kSamplesPerWord != 0)
                          replace (*word++, 1, index++);

                      const auto whole = (last - index) / kSamplesPerWord;

                      if (source != nullptr)
                          platform::sharedWords::store (source + index, word, whole);
                      else
                          std::for_each (word, word + whole, [] (Word& w) { w.store (0, std::memory_order_release); });

                      word += whole;
                      index += whole * kSamplesPerWord;

                      if (index < last)
                          replace (*word, 0, index);
                  });
}

void AudioRing::restart() noexcept
{
    const auto start = written.load (std::memory_order_relaxed) + kCapacity;
    claimed.store (start, std::memory_order_relaxed);
    written.store (start, std::memory_order_release);
}

void AudioRing::read (float* const* channels, int offset, std::int64_t from, int numSamples) const noexcept
{
    const auto newest = end();
    const auto oldest = claimed.load (std::memory_order_relaxed) - kCapacity;
    const auto first = std::max (from, oldest);
    const auto last = std::min (from + numSamples, newest);

    if (first >= last)
        return;

    const auto target = offset + static_cast<int> (first - from);
    const auto length = static_cast<int> (last - first);

    for (int channel = 0; channel < channelCount; ++channel)
        if (auto* const samples = channels[channel])
            forEachPiece (first, length,
                          [&] (int ringIndex, int done, int pieceLength)
                          {
                              copyOut (channelWords (channel) + ringIndex / kSamplesPerWord,
                                       ringIndex % kSamplesPerWord, samples + target + done, pieceLength);
                          });

    const auto lost = std::min (claimed.load (std::memory_order_relaxed) - kCapacity, last) - first;

    for (int channel = 0; channel < channelCount && lost > 0; ++channel)
        if (auto* const samples = channels[channel])
            std::fill_n (samples + target, lost, 0.0f);
}

const AudioRing::Word* AudioRing::channelWords (int channel) const noexcept
{
    return words.get() + static_cast<std::ptrdiff_t> (channel) * kWordsPerChannel;
}

AudioRing::Word* AudioRing::channelWords (int channel) noexcept
{
    return words.get() + static_cast<std::ptrdiff_t> (channel) * kWordsPerChannel;
}

}   // namespace baylink
