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

    /** Clicks on the content, as the window system does it. */
    void click (int x, int y, unsigned keys, unsigned button)
    {
        ::Window root, parent, *children = nullptr;
        unsigned count = 0;
        XQueryTree (connection, window, &root, &parent, &children, &count);

        for (const auto kind : { ButtonPress, ButtonRelease })
        {
            XEvent event {};
            event.xbutton = { kind, 0, False, connection, *children, root, None, 0, x, y, x, y, keys, button, True };
            XSendEvent (connection, *children, False, NoEventMask, &event);
        }

        XFree (children), XSync (connection, False);
    }

    Display* const connection = XOpenDisplay (nullptr);
    const ::Window window = XCreateSimpleWindow (connection, DefaultRootWindow (connection), 0, 0, 600, 300, 0, 0, 0);
};
