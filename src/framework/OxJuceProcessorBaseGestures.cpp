// SPDX-License-Identifier: GPL-3.0-or-later
// Gestures: the begins and ends between which hosts record, also for what follows a parameter that is held.
#include "framework/OxJuceProcessorBase.h"

void OxJuceProcessorBase::beginGesture (int id)
{
    if (id == getNoParamId() || id >= kPersistentIdBase)
        return;

    const bool isHeld = parameter (id).editedByGui;
    {
        const juce::ScopedLock lock (gestureLock);

        if (gestureParams.contains (id) || (! isHeld && gestureParams.isEmpty()))
            return;

        if (isHeld)
            gestureParams.add (id);
    }

    if (! isHeld)
    {
        const juce::ScopedLock lock (linkedGestureLock);

        if (! linkedGestureParams.addIfNotAlreadyThere (id))
            return;
    }

    tellGesture (HostNotices::Kind::gestureBegin, id);
}

void OxJuceProcessorBase::endGesture (int id)
{
    if (id >= kPersistentIdBase)
        return;

    tellGesture (HostNotices::Kind::gestureEnd, id);
    {
        const juce::ScopedLock lock (gestureLock);
        gestureParams.removeFirstMatchingValue (id);

        if (! gestureParams.isEmpty())
            return;
    }

    juce::Array<int> followers;
    {
        const juce::ScopedLock lock (linkedGestureLock);
        followers.swapWith (linkedGestureParams);
    }

    for (const auto follower : followers)
        tellGesture (HostNotices::Kind::gestureEnd, follower);
}

void OxJuceProcessorBase::tellGesture (HostNotices::Kind kind, int id)
{
    if (getGroup (id) == Group::normal)
        hostNotices.add (kind, id);
}

// The toolkit tells its listeners from the last to the first, each taken under the list's lock.
void OxJuceProcessorBase::tellHost (HostNotices::Kind kind, int id)
{
    JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")

    switch (kind)
    {
        case HostNotices::Kind::value:
            sendParamChangeMessageToListeners (id, parameter (id).value);
            break;
        case HostNotices::Kind::gestureBegin:
            beginParameterChangeGesture (id);
            break;
        case HostNotices::Kind::gestureEnd:
            endParameterChangeGesture (id);
            break;
        case HostNotices::Kind::display:
            updateHostDisplay();
            break;
    }

    JUCE_END_IGNORE_WARNINGS_GCC_LIKE
}
