// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/EventsReadAhead.h"

#include <juce_events/juce_events.h>

#include <juce_events/native/juce_linux_EventLoopInternal.h>

#include <GL/glx.h>

void platform::deliverEventsReadAhead()
{
    auto* const display = glXGetCurrentDisplay();

    if (display == nullptr || QLength (display) == 0)
        return;

    juce::MessageManager::callAsync ([connection = ConnectionNumber (display)]
                                     { juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd (connection); });
}
