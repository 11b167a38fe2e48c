// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace platform
{

/** Has the message thread dispatch the window events that OpenGL has read from the connection they share while it waited
    for answers of its own: they no longer wake anybody, and a click would wait for the next event [the thread of the
    current context]. */
void deliverEventsReadAhead();

}   // namespace platform
