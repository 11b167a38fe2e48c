// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/GlWindow.h"

#include <juce_events/juce_events.h>

#include <juce_events/native/juce_linux_EventLoopInternal.h>

#include <GL/glx.h>

namespace platform
{

void GlWindow::deliverEventsReadAhead() const
{
    auto* const display = glXGetCurrentDisplay();

    if (display == nullptr || QLength (display) == 0)
        return;

    juce::MessageManager::callAsync ([connection = ConnectionNumber (display)]
                                     { juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd (connection); });
}

bool GlWindow::hasGone()
{
    unsigned int height = 0;
    glXQueryDrawable (glXGetCurrentDisplay(), glXGetCurrentDrawable(), GLX_HEIGHT, &height);
    return height == 0 ? seen : (seen = true, false);
}

}   // namespace platform
