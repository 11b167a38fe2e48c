// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>
#include <cstring>

#if defined(__x86_64__) && ! defined(__SANITIZE_THREAD__)
    #include <emmintrin.h>
    #define DUO_PAIRED_WORDS 1
#else
    #define DUO_PAIRED_WORDS 0
#endif

/** Copies between plain memory and a run of atomic words that another thread may be using meanwhile [any thread].

    Each word comes over whole; a run as such may be caught half-way. On this processor two words move in one instruction:
    it splits 16 bytes at most between aligned words, and keeps loads in order as well as stores. It is written as an
    instruction, so that the compiler sees no unsynchronised access; the thread sanitizer's build moves word by word. */
namespace platform::sharedWords
{

using Word = std::atomic<std::uint64_t>;
static_assert (sizeof (Word) == sizeof (std::uint64_t) && Word::is_always_lock_free);

/** Loads with acquire order, each word before what the caller reads next. */
inline void load (const Word* from, void* to, int count) noexcept
{
    auto* target = static_cast<char*> (to);

#if DUO_PAIRED_WORDS
    const auto move = [&] (int pair)
    {
        __m128i words;
        asm volatile("movdqu %1, %0" : "=x"(words) : "m"(from[2 * pair]) : "memory");
        _mm_storeu_si128 (reinterpret_cast<__m128i*> (target) + pair, words);
    };

    for (; count >= 8; count -= 8, from += 8, target += 4 * sizeof (__m128i))
    {
        move (0);
        move (1);
        move (2);
        move (3);
    }

    for (; count >= 2; count -= 2, from += 2, target += sizeof (__m128i))
        move (0);
#endif

    for (; count > 0; --count, target += sizeof (Word))
    {
        const auto word = (from++)->load (std::memory_order_acquire);
        std::memcpy (target, &word, sizeof (word));
    }
}

/** Stores with release order, each word after what the caller wrote before. */
inline void store (const void* from, Word* to, int count) noexcept
{
    const auto* source = static_cast<const char*> (from);

#if DUO_PAIRED_WORDS
    for (; count >= 2; count -= 2, to += 2, source += sizeof (__m128i))
    {
        const auto pair = _mm_loadu_si128 (reinterpret_cast<const __m128i*> (source));
        asm volatile("movdqu %1, (%0)" : : "r"(to), "x"(pair) : "memory");
    }
#endif

    for (; count > 0; --count, source += sizeof (Word))
    {
        std::uint64_t word;
        std::memcpy (&word, source, sizeof (word));
        (to++)->store (word, std::memory_order_release);
    }
}

}   // namespace platform::sharedWords

#undef DUO_PAIRED_WORDS
