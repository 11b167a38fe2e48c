// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/HostTools.h"   // before the window system's macros

#include <X11/Xlib.h>

/** A window of the host, over a connection of the host's own. */
struct ParentWindow
{
    ParentWindow() { XSync (connection, False); }
    ~ParentWindow() { XCloseDisplay (connection); }
    void destroy() { XDestroyWindow (connection, window), XSync (connection, False); }

    /** @returns how wide the one window in it is, and how high; 0 and 0 without one. */
    std::pair<int, int> getContentSize()
    {
        ::Window root, parent, *children = nullptr;
        unsigned count = 0;
        XWindowAttributes content {};

        if (XQueryTree (connection, window, &root, &parent, &children, &count) != 0 && count == 1)
            XGetWindowAttributes (connection, *children, &content);

        XFree (children);
        return { content.width, content.height };
    }

    Display* const connection = XOpenDisplay (nullptr);
    const ::Window window = XCreateSimpleWindow (connection, DefaultRootWindow (connection), 0, 0, 600, 300, 0, 0, 0);
};
