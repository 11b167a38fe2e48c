// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxReadWriteLock.h"

bool OxReadWriteLock::tryRead()
{
    const juce::ScopedLock scope (guard);

    if (writer)
        return false;

    ++readers;
    return true;
}

bool OxReadWriteLock::tryWrite()
{
    const juce::ScopedLock scope (guard);

    if (writer || readers > 0)
        return false;

    writer = true;
    return true;
}

void OxReadWriteLock::releaseRead()
{
    const juce::ScopedLock scope (guard);
    --readers;
}

void OxReadWriteLock::releaseWrite()
{
    const juce::ScopedLock scope (guard);
    writer = false;
}

OxScopedReadWriteLock::OxScopedReadWriteLock (OxReadWriteLock& lockToHold, Mode readOrWrite, bool blocking,
                                              const char* holder) :
    lock (lockToHold),
    mode (readOrWrite), caller (holder)
{
    do
        gained = attempt();
    while (! gained && blocking);
}

OxScopedReadWriteLock::~OxScopedReadWriteLock()
{
    if (gained)
        mode == Mode::read ? lock.releaseRead() : lock.releaseWrite();
}

bool OxScopedReadWriteLock::attempt()
{
    return mode == Mode::read ? lock.tryRead() : lock.tryWrite();
}
