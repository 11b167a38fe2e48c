// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <X11/Xlib.h>   // whose macros take common names: to be included last
#include <X11/Xutil.h>

/** A window of the display as a user meets it: its pixels and its mouse, over a connection of its own. */
struct XWindow
{
    explicit XWindow (const juce::Component& onDesktop) :
        window (reinterpret_cast<::Window> (onDesktop.getPeer()->getNativeHandle()))
    {
    }
    ~XWindow() { XCloseDisplay (display); }

    /** Goes down to the innermost window of this size that takes clicks. @returns false while there is none */
    bool enter (int width, int height)
    {
        const auto found = find (window, width, height);
        return found != 0 && (window = found, true);
    }

    /** What is on the screen of it, with all windows within. */
    juce::Image picture() const
    {
        const auto is = getAttributes (window);
        auto* const pixels =
            XGetImage (display, window, 0, 0, unsigned (is.width), unsigned (is.height), ~0ul, ZPixmap);
        juce::Image image (juce::Image::RGB, is.width, is.height, false);
        const juce::Image::BitmapData target (image, juce::Image::BitmapData::writeOnly);

        for (int y = 0; y < is.height; ++y)
            for (int x = 0; x < is.width; ++x)
                std::memcpy (target.getPixelPointer (x, y), pixels->data + y * pixels->bytes_per_line + 4 * x, 3);

        XDestroyImage (pixels);
        return image;
    }

    void press (juce::Point<int> place) { pointer = place, hover(), send (ButtonPress, ButtonPressMask, 0); }
    void release() { send (ButtonRelease, ButtonReleaseMask, Button1Mask); }

    /** Tells again where the pointer is. */
    void hover() { send (MotionNotify, PointerMotionMask, 0); }

private:
    XWindowAttributes getAttributes (::Window which) const
    {
        XWindowAttributes attributes {};
        XGetWindowAttributes (display, which, &attributes);
        return attributes;
    }

    ::Window find (::Window from, int width, int height) const
    {
        ::Window root, parent, *children = nullptr;
        unsigned count = 0;
        XQueryTree (display, from, &root, &parent, &children, &count);
        const auto is = getAttributes (from);
        const auto fits = is.width == width && is.height == height && (is.all_event_masks & ButtonPressMask) != 0;
        auto found = fits && is.map_state == IsViewable ? from : 0;

        for (unsigned i = 0; i < count; ++i)
            if (const auto within = find (children[i], width, height); within != 0)
                found = within;

        XFree (children);
        return found;
    }

    void send (int type, long mask, unsigned state)
    {
        XEvent event {};
        auto& mouse = event.xbutton;   // motion is laid out as a click, but for the button
        mouse.type = type, mouse.window = window, mouse.same_screen = True;
        mouse.x = pointer.x, mouse.y = pointer.y;
        mouse.state = state, mouse.button = type == MotionNotify ? 0 : Button1;
        mouse.time = juce::Time::getMillisecondCounter();
        XSendEvent (display, window, False, mask, &event);
        XSync (display, False);
    }

    Display* const display = XOpenDisplay (nullptr);
    ::Window window;
    juce::Point<int> pointer;
};
