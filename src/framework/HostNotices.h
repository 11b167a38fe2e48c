// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>

#include <juce_core/juce_core.h>

/** What the host is to hear, told one after the other by a thread that holds no lock of ours [any thread but the audio
    thread].

    A host may take a lock of its own in what it is told, and another of its threads may come in with that lock held: so
    whoever calls us may never wait for one who tells. What comes up while somebody tells is told by that thread in its turn;
    what comes up under a lock, after it. A parameter's value is the one that stands when it is told: of two that wait, the
    later one is told. */
class HostNotices
{
public:
    enum class Kind
    {
        value,
        gestureBegin,
        gestureEnd,
        display   // of no parameter: names, programs or the like
    };

    using Tell = std::function<void (Kind kind, int id)>;

    explicit HostNotices (Tell tellHost) : tell (std::move (tellHost)) {}

    /** Tells it, now or as soon as may be. */
    void add (Kind kind, int id);

    /** Holds a lock under which its thread tells nothing. */
    class ScopedLock
    {
    public:
        ScopedLock (HostNotices& noticesToHold, const juce::CriticalSection& lockToTake);
        ~ScopedLock();

        ScopedLock (const ScopedLock&) = delete;
        ScopedLock& operator= (const ScopedLock&) = delete;

    private:
        HostNotices& notices;
        const juce::CriticalSection& lock;
    };

private:
    struct Notice
    {
        Kind kind;
        int id;
    };

    void tellAll();

    const Tell tell;
    juce::CriticalSection mutex;   // of all below; nothing is called while it is held
    std::deque<Notice> waiting;
    juce::Array<juce::Thread::ThreadID> holders;   // of a `ScopedLock`, once for each
    bool isTelling = false;
};
