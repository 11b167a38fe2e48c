// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/HostNotices.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>

namespace
{

struct Notice
{
    HostNotices::Kind kind;
    int id;
};

}   // namespace

struct HostNotices::Waiting
{
    void add (Notice newNotice)
    {
        const std::lock_guard lock (mutex);
        const auto last = std::find_if (notices.rbegin(), notices.rend(),
                                        [&newNotice] (const auto& notice) { return notice.id == newNotice.id; });

        if (last != notices.rend() && last->kind == newNotice.kind)
            notices.erase (std::next (last).base());

        notices.push_back (newNotice);
    }

    /** @returns whether this thread is to see to it that somebody tells. */
    bool claim()
    {
        const std::lock_guard lock (mutex);
        const auto mayTell = std::count (holders.begin(), holders.end(), juce::Thread::getCurrentThreadId()) == 0;
        return mayTell && ! notices.empty() && ! std::exchange (isTelling, true);
    }

    void tellAll()
    {
        std::unique_lock lock (mutex);

        while (! notices.empty())
        {
            const auto [kind, id] = notices.front();
            notices.pop_front();
            caller = juce::Thread::getCurrentThreadId();
            lock.unlock();
            tell (kind, id);
            lock.lock();
            caller = nullptr;
            ++numCalls;
            called.notify_all();
        }

        isTelling = false;
    }

    void finish (bool forGood)
    {
        std::unique_lock lock (mutex);

        if (forGood)
            notices.clear();

        if (caller != juce::Thread::getCurrentThreadId())
            called.wait (lock, [this, before = numCalls] { return caller == nullptr || numCalls != before; });
    }

    Tell tell;
    std::mutex mutex;   // of all below; nothing is called while it is held
    std::condition_variable called;
    std::deque<Notice> notices;
    std::vector<juce::Thread::ThreadID> holders;   // of a `ScopedLock`, once for each
    juce::Thread::ThreadID caller = nullptr;       // is in a call of the host
    juce::int64 numCalls = 0;                      // that are over
    bool isTelling = false;                        // somebody tells, or is going to
};

HostNotices::HostNotices (Tell tellHost) : state (std::make_shared<Waiting>()), run ([] (auto tellAll) { tellAll(); })
{
    state->tell = std::move (tellHost);
}

HostNotices::~HostNotices()
{
    state->finish (true);
}

void HostNotices::setRunner (Run newRun)
{
    run = std::move (newRun);
}

void HostNotices::add (Kind kind, int id)
{
    state->add ({ kind, id });
    tellAll();
}

void HostNotices::tellAll()
{
    if (state->claim())
        run ([claimed = state] { claimed->tellAll(); });
}

void HostNotices::finish()
{
    state->finish (false);
}

HostNotices::ScopedLock::ScopedLock (HostNotices& noticesToHold, const juce::CriticalSection& lockToTake) :
    notices (noticesToHold), lock (lockToTake)
{
    {
        const std::lock_guard scope (notices.state->mutex);
        notices.state->holders.push_back (juce::Thread::getCurrentThreadId());
    }

    lock.enter();
}

HostNotices::ScopedLock::~ScopedLock()
{
    lock.exit();

    {
        const std::lock_guard scope (notices.state->mutex);
        auto& holders = notices.state->holders;
        holders.erase (std::find (holders.begin(), holders.end(), juce::Thread::getCurrentThreadId()));
    }

    notices.tellAll();
}
