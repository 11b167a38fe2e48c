// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace platform
{

/** The window of the current OpenGL context, as the window system knows it [the thread of that context]. */
class GlWindow
{
public:
    /** Has the message thread dispatch the window events that OpenGL has read from the connection they share while it
        waited for answers of its own: they no longer wake anybody, and a click would wait for the next event. */
    void deliverEventsReadAhead() const;

    /** Whether the window has gone, as when a host destroys it under its plug-in. A software renderer then writes beyond
        buffers of no size: draw nothing. Asks the window system each time. */
    bool hasGone();

private:
    bool seen = false;   // a window system that knows no size of a window that lives is not to be believed
};

}   // namespace platform
