// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** A small lock with many readers or one writer, which nobody queues for: each attempt is one test [any thread]. It is not
    re-entrant, and a writer that keeps trying may be kept out by readers that come and go. */
class OxReadWriteLock
{
public:
    bool tryRead();
    bool tryWrite();
    void releaseRead();
    void releaseWrite();

private:
    juce::CriticalSection guard;
    int readers = 0;
    bool writer = false;
};

/** Holds an `OxReadWriteLock` from construction to destruction, if it was gained. */
class OxScopedReadWriteLock
{
public:
    enum class Mode
    {
        read,
        write
    };

    /** Makes one attempt, or with `blocking` as many as it takes, without sleeping.
        @param holder who asks, for whoever debugs: the caller's `__func__` or better */
    OxScopedReadWriteLock (OxReadWriteLock& lockToHold, Mode readOrWrite, bool blocking, const char* holder);
    ~OxScopedReadWriteLock();

    bool isGained() const noexcept { return gained; }

    OxScopedReadWriteLock (const OxScopedReadWriteLock&) = delete;
    OxScopedReadWriteLock& operator= (const OxScopedReadWriteLock&) = delete;

private:
    bool attempt();

    OxReadWriteLock& lock;
    const Mode mode;
    [[maybe_unused]] const char* const caller;
    bool gained = false;
};
