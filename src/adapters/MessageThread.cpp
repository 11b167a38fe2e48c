// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/MessageThread.h"

#include "platform/EventWait.h"
#include "platform/Relaxed.h"

#include <deque>
#include <list>
#include <mutex>

#include <juce_events/native/juce_linux_EventLoopInternal.h>

namespace
{

using ToolkitLock = juce::MessageManager::Lock;

/** Stays at the end of the process, as all that our own thread uses has to: a host may end by exit() with plug-ins in place,
    on any thread, this one included. What it held is given back with the last plug-in. */
template <typename Value>
union Staying
{
    ~Staying() {}
    Value value {};
};

std::mutex waitMutex;                                       // of both lists, and while the host takes over
Staying<std::list<const ToolkitLock*>> waiting;             // for our own thread to hold still
Staying<std::list<std::unique_ptr<ToolkitLock>>> retired;   // our own thread may still be leaving a call of these

/** Calls the host in place of our own thread. It runs from the first call on. */
class HostCaller : private juce::Thread
{
public:
    HostCaller() : Thread ("Duo Judge tells") {}

    ~HostCaller() override
    {
        signalThreadShouldExit();
        notify();
        stopThread (-1);
    }

    void add (std::function<void()> call)
    {
        {
            const std::lock_guard<std::mutex> guard (callMutex);
            calls.push_back (std::move (call));
        }

        startThread();   // if it does not run
        notify();
    }

private:
    void run() override
    {
        while (! threadShouldExit())
            if (const auto call = takeCall())
                call();
            else
                wait (-1);
    }

    std::function<void()> takeCall()
    {
        const std::lock_guard<std::mutex> guard (callMutex);

        if (calls.empty())
            return {};

        auto call = std::move (calls.front());
        calls.pop_front();
        return call;
    }

    std::mutex callMutex;   // of the calls
    std::deque<std::function<void()>> calls;
};

Relaxed<juce::Thread::ThreadID> ownThreadId = nullptr;

/** Waits for the toolkit's events and runs them. */
class OwnThread : private juce::Thread
{
public:
    OwnThread() : Thread ("Duo Judge messages")
    {
        startThread (Priority::high);
        ready.wait();
    }

    ~OwnThread() override
    {
        signalThreadShouldExit();
        juce::MessageManager::callAsync ([] {});   // wakes it
        stopThread (-1);
    }

    bool isCurrent() const { return getThreadId() == getCurrentThreadId(); }

private:
    void run() override
    {
        ownThreadId = getThreadId();
        juce::MessageManager::getInstance()->setCurrentThreadAsMessageThread();
        ready.signal();

        // The set of descriptors changes with the first window, which no wake-up tells.
        constexpr int longestWait = 50;   // milliseconds

        while (! threadShouldExit())
        {
            for (const auto descriptor :
                 platform::waitForInput (juce::LinuxEventLoopInternal::getRegisteredFds(), longestWait))
                juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd (descriptor);

            const std::lock_guard<std::mutex> guard (waitMutex);
            retired.value.clear();
        }
    }

    juce::WaitableEvent ready;
};

std::mutex mutex;   // of all below
int numUsers = 0;
std::atomic<int> numLoans { 0 };
Staying<std::unique_ptr<OwnThread>> ownThread;
Staying<std::unique_ptr<HostCaller>> hostCaller;   // as long as the toolkit is up
Relaxed<bool> hostRunsEvents = false;

}   // namespace

void MessageThread::callHost (std::function<void()> call)
{
    if (juce::Thread::getCurrentThreadId() == ownThreadId)
        hostCaller.value->add (std::move (call));
    else
        call();
}

void MessageThread::runEvents()
{
    auto* const messages = juce::MessageManager::getInstance();

    if (! messages->isThisTheMessageThread())
        messages->setCurrentThreadAsMessageThread();

    // Each round runs all that is there; a descriptor that stays ready without an event ends the rounds.
    for (int round = 0; round < 100; ++round)
    {
        const auto ready = platform::waitForInput (juce::LinuxEventLoopInternal::getRegisteredFds(), 0);

        if (ready.empty())
            return;

        for (const auto descriptor : ready)
            juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd (descriptor);
    }
}

MessageThread::User::User()
{
    const std::lock_guard<std::mutex> lock (mutex);

    if (++numUsers > 1)
        return;

    juce::initialiseJuce_GUI();
    hostCaller.value = std::make_unique<HostCaller>();
    ownThread.value = std::make_unique<OwnThread>();
}

MessageThread::User::~User()
{
    const std::lock_guard<std::mutex> lock (mutex);

    if (--numUsers > 0)
        return;

    jassert (ownThread.value == nullptr || ! ownThread.value->isCurrent());
    ownThread.value.reset();
    retired.value.clear();
    hostRunsEvents = false;
    runEvents();
    hostCaller.value.reset();
    juce::shutdownJuce_GUI();
}

MessageThread::Lock::Lock()
{
    auto* const messages = juce::MessageManager::getInstanceWithoutCreating();

    held = messages != nullptr && messages->isThisTheMessageThread();

    if (held || messages == nullptr)
        return;

    {
        const std::lock_guard<std::mutex> guard (waitMutex);

        if (hostRunsEvents)
            return;

        lock = std::make_unique<ToolkitLock>();
        waiting.value.push_back (lock.get());
    }

    held = lock->tryEnter();
    const std::lock_guard<std::mutex> guard (waitMutex);
    waiting.value.remove (lock.get());
}

MessageThread::Lock::~Lock()
{
    if (lock == nullptr)
        return;

    lock->exit();
    const std::lock_guard<std::mutex> guard (waitMutex);
    retired.value.push_back (std::move (lock));
}

MessageThread::Loan::Loan()
{
    ++numLoans;
    lendHostThread();
}

MessageThread::Loan::~Loan()
{
    if (--numLoans == 0)
        returnHostThread();
}

void MessageThread::lendHostThread()
{
    const std::lock_guard<std::mutex> lock (mutex);

    {
        // Whoever waits for our thread would wait for the host's from now on.
        const std::lock_guard<std::mutex> guard (waitMutex);
        hostRunsEvents = true;

        for (const auto* const one : waiting.value)
            one->abort();
    }

    ownThread.value.reset();
    juce::MessageManager::getInstance()->setCurrentThreadAsMessageThread();
}

void MessageThread::returnHostThread()
{
    const std::lock_guard<std::mutex> lock (mutex);
    hostRunsEvents = false;

    if (ownThread.value == nullptr)
        ownThread.value = std::make_unique<OwnThread>();
}
