// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/MessageThread.h"

#include "platform/EventWait.h"
#include "platform/Relaxed.h"

#include <mutex>

#include <juce_events/native/juce_linux_EventLoopInternal.h>

namespace
{

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
            for (const auto descriptor :
                 platform::waitForInput (juce::LinuxEventLoopInternal::getRegisteredFds(), longestWait))
                juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd (descriptor);
    }

    juce::WaitableEvent ready;
};

std::mutex mutex;   // of all below
int numUsers = 0;
std::unique_ptr<OwnThread> ownThread;
Relaxed<bool> hostRunsEvents = false;

/** Runs what is posted already, on the thread that ends the toolkit. */
void runLastEvents()
{
    juce::MessageManager::getInstance()->setCurrentThreadAsMessageThread();

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

}   // namespace

MessageThread::User::User()
{
    const std::lock_guard<std::mutex> lock (mutex);

    if (++numUsers > 1)
        return;

    juce::initialiseJuce_GUI();
    ownThread = std::make_unique<OwnThread>();
}

MessageThread::User::~User()
{
    const std::lock_guard<std::mutex> lock (mutex);

    if (--numUsers > 0)
        return;

    jassert (ownThread == nullptr || ! ownThread->isCurrent());
    ownThread.reset();
    hostRunsEvents = false;
    runLastEvents();
    juce::shutdownJuce_GUI();
}

MessageThread::Lock::Lock()
{
    auto* const messages = juce::MessageManager::getInstanceWithoutCreating();

    if (messages != nullptr && (! hostRunsEvents || messages->isThisTheMessageThread()))
        lock.emplace();
}

void MessageThread::lendHostThread()
{
    const std::lock_guard<std::mutex> lock (mutex);
    ownThread.reset();
    juce::MessageManager::getInstance()->setCurrentThreadAsMessageThread();
    hostRunsEvents = true;
}

void MessageThread::returnHostThread()
{
    const std::lock_guard<std::mutex> lock (mutex);
    hostRunsEvents = false;

    if (ownThread == nullptr)
        ownThread = std::make_unique<OwnThread>();
}
