// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** What a listener can choose from, in the order of the rows.

    Both lists have the same length; entry 0 is the row "Not Connected" with the id -1 once the list was filled. */
class OxJucePodSender
{
public:
    juce::CriticalSection podLock;   // of both lists; a block holds it for as long as it reads a pod
    juce::StringArray podNames;
    juce::Array<int> podIds;
};
