// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>

/** A plain word that one thread writes while others read it, with no order promised beyond the word itself.

    Reads and writes like the type it holds and copies like it; each access is one relaxed load or store, so two threads
    may meet here without a lock. Compound operators are a load and a store, not one step: a word has one writer at a
    time, or losing one of two writes does no harm. */
template <typename Value>
class Relaxed
{
public:
    constexpr Relaxed() noexcept = default;
    constexpr Relaxed (Value initial) noexcept : word (initial) {}
    Relaxed (const Relaxed& other) noexcept : word (other.get()) {}

    Relaxed& operator= (const Relaxed& other) noexcept { return *this = other.get(); }

    Relaxed& operator= (Value newValue) noexcept
    {
        word.store (newValue, std::memory_order_relaxed);
        return *this;
    }

    Relaxed& operator+= (Value amount) noexcept { return *this = static_cast<Value> (get() + amount); }

    operator Value() const noexcept { return get(); }

    Value get() const noexcept { return word.load (std::memory_order_relaxed); }

private:
    std::atomic<Value> word {};
    static_assert (std::atomic<Value>::is_always_lock_free);
};
