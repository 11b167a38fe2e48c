// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/MessageThread.h"

#include "platform/EventWait.h"
#include "platform/Relaxed.h"

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
Relaxed<bool> hostRunsEvents = false;

}   // namespace

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
