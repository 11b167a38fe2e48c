// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/HostNotices.h"

void HostNotices::add (Kind kind, int id)
{
    {
        const juce::ScopedLock lock (mutex);
        const auto last =
            std::find_if (waiting.rbegin(), waiting.rend(), [id] (const auto& notice) { return notice.id == id; });

        if (last != waiting.rend() && last->kind == kind)
            waiting.erase (std::next (last).base());

        waiting.push_back ({ kind, id });
    }

    tellAll();
}

void HostNotices::tellAll()
{
    const juce::ScopedLock lock (mutex);

    if (isTelling || holders.contains (juce::Thread::getCurrentThreadId()))
        return;

    isTelling = true;

    while (! waiting.empty())
    {
        const auto notice = waiting.front();
        waiting.pop_front();
        const juce::ScopedUnlock unlock (mutex);
        tell (notice.kind, notice.id);
    }

    isTelling = false;
}

HostNotices::ScopedLock::ScopedLock (HostNotices& noticesToHold, const juce::CriticalSection& lockToTake) :
    notices (noticesToHold), lock (lockToTake)
{
    {
        const juce::ScopedLock scope (notices.mutex);
        notices.holders.add (juce::Thread::getCurrentThreadId());
    }

    lock.enter();
}

HostNotices::ScopedLock::~ScopedLock()
{
    lock.exit();

    {
        const juce::ScopedLock scope (notices.mutex);
        notices.holders.removeFirstMatchingValue (juce::Thread::getCurrentThreadId());
    }

    notices.tellAll();
}
