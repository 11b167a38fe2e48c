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
    tellGestureBegin (id);
}

void OxJuceProcessorBase::endGesture (int id)
{
    if (id >= kPersistentIdBase)
        return;

    tellGestureEnd (id);
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
        tellGestureEnd (follower);
}

// The toolkit tells its listeners from the last to the first, each taken under the list's lock.
void OxJuceProcessorBase::tellGestureBegin (int id)
{
    if (getGroup (id) == Group::normal)
    {
        JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
        beginParameterChangeGesture (id);
        JUCE_END_IGNORE_WARNINGS_GCC_LIKE
    }
}

void OxJuceProcessorBase::tellGestureEnd (int id)
{
    if (getGroup (id) == Group::normal)
    {
        JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
        endParameterChangeGesture (id);
        JUCE_END_IGNORE_WARNINGS_GCC_LIKE
    }
}
