// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** Counts what an audio thread must not do, from construction to destruction, for the constructing thread alone.

    The C library's functions are stood in for by counting ones that pass every call on, so calls from shared libraries
    count as well, those loaded at run time included. What the C library does by itself inside one call does not count
    again. A guard within a guard counts for both. */
class AudioThreadGuard
{
public:
    struct Counts
    {
        int allocations = 0;   // malloc and its kin, new and delete, and giving memory back
        int locks = 0;         // mutexes, reader-writer locks, semaphores and conditions, tried, taken or waited for
        int systemCalls = 0;   // files, sleeping, yielding, memory maps, and syscall()
        int hostCalls = 0;     // what a host is told, by its own `note`
    };

    AudioThreadGuard() noexcept : outer (watching) { watching = this; }
    ~AudioThreadGuard() { watching = outer; }

    AudioThreadGuard (const AudioThreadGuard&) = delete;
    AudioThreadGuard& operator= (const AudioThreadGuard&) = delete;

    const Counts& counts() const noexcept { return seen; }

    /** False under a sanitizer, which stands in for the same functions: then `locks` and `systemCalls` stay 0, and
        `allocations` may be one more or less a call, though 0 means none. */
    static bool canCountLocks() noexcept;

    /** Adds one on the calling thread, when a guard watches it. */
    static void note (int Counts::*kind) noexcept;

private:
    static inline thread_local AudioThreadGuard* watching = nullptr;

    Counts seen;
    AudioThreadGuard* outer;
};
