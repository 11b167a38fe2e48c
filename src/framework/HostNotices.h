// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

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

    /** Has somebody run it, here or elsewhere, now or later. */
    using Run = std::function<void (std::function<void()>)>;

    explicit HostNotices (Tell tellHost);
    ~HostNotices();

    HostNotices (const HostNotices&) = delete;
    HostNotices& operator= (const HostNotices&) = delete;

    /** Where telling is done from now on, if not on the thread that comes with a notice [while nothing is told]. */
    void setRunner (Run newRun);

    /** Tells it, now or as soon as may be. */
    void add (Kind kind, int id);

    /** Waits until no call of the host is under way that began before, if it is not this thread's own. */
    void finish();

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
    struct Waiting;
    void tellAll();

    const std::shared_ptr<Waiting> state;   // as long as somebody may run it
    Run run;
};
