// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include <juce_events/juce_events.h>

/** The thread that runs the toolkit's events inside a host: one of our own, or one that the host lends.

    A plug-in cannot count on a host that pumps events: many load and render without any window. So the plug-in brings a
    thread of its own, which runs as long as an object of an adapter lives. Where a host offers an event loop to a window,
    the host's thread takes over for as long as the window stands. */
class MessageThread
{
public:
    /** Keeps the toolkit and its message thread up. The first of a process starts both, the last to go ends both, with
        no thread left behind [any thread but our own message thread]. */
    class User
    {
    public:
        User();
        ~User();

        User (const User&) = delete;
        User& operator= (const User&) = delete;
    };

    /** Keeps the message thread from running events, where that can be waited for [any thread].

        Our own thread always answers. A host's thread may itself be waiting for the caller, so it is never waited for:
        then the lock is held only if this is that thread. A wait ends without the lock when the host takes over. */
    class Lock
    {
    public:
        Lock();
        ~Lock();

        Lock (const Lock&) = delete;
        Lock& operator= (const Lock&) = delete;

        bool isHeld() const noexcept { return held; }

    private:
        std::unique_ptr<juce::MessageManager::Lock> lock;
        bool held = false;
    };

    /** The thread that makes one runs the events from now on, by `runEvents`; ours stops until the last one goes. */
    class Loan
    {
    public:
        Loan();
        ~Loan();

        Loan (const Loan&) = delete;
        Loan& operator= (const Loan&) = delete;
    };

    /** Runs a call that a host may answer when it likes: here, or for our own message thread, which must never keep a host
        waiting for the lock, on a thread for such calls, one after the other. */
    static void callHost (std::function<void()> call);

    /** Runs what is posted already, on the thread that calls this, as the message thread. */
    static void runEvents();

    /** Destroys an object that has timers or windows [any thread]: at once under the lock, or else on the message thread as
        soon as it runs. */
    template <typename Object>
    static void destroy (Object* object)
    {
        const Lock lock;

        if (lock.isHeld() || ! juce::MessageManager::callAsync ([object] { delete object; }))
            delete object;
    }

    /** The host's thread, which calls this, runs the events from now on; ours stops. */
    static void lendHostThread();

    /** The host's thread runs no more events; ours goes on with them. */
    static void returnHostThread();
};
