// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** The list of pods that can be heard, with the lock that guards it.

    Both lists have the same length; entry 0 is the row "Not Connected" with the id -1 once the list was filled. */
class OxJucePodSender
{
public:
    juce::CriticalSection podLock;   // also held by the audio thread for the whole read of a pod
    juce::StringArray podNames;
    juce::Array<int> podIds;
};
