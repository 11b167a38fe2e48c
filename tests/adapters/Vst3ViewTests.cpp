// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/RawHost.h"

#include <X11/Xlib.h>

namespace
{

/** A window of the host, over a connection of the host's own. */
struct ParentWindow
{
    ParentWindow() { XMapWindow (connection, window), XSync (connection, False); }
    ~ParentWindow() { XCloseDisplay (connection); }

    /** @returns the size of the one window in it as "width x height", or the number of windows. */
    std::string describeContent()
    {
        ::Window root, parent, *children = nullptr;
        unsigned count = 0;
        XWindowAttributes content {};
        XQueryTree (connection, window, &root, &parent, &children, &count);

        if (count == 1)
            XGetWindowAttributes (connection, *children, &content);

        XFree (children);
        return count == 1 ? std::to_string (content.width) + " x " + std::to_string (content.height)
                          : std::to_string (count);
    }
    void destroy() { XDestroyWindow (connection, window), XSync (connection, False); }

    Display* const connection = XOpenDisplay (nullptr);
    const ::Window window = XCreateSimpleWindow (connection, DefaultRootWindow (connection), 0, 0, 600, 300, 0, 0, 0);
};

struct Vst3ViewTest : PlugInTest
{
    IPtr<IPlugView> open (Instance& instance, ParentWindow& window)
    {
        auto view = owned (instance.controller->createView (ViewType::kEditor));
        EXPECT_EQ (view->setFrame (&host), kResultOk);
        EXPECT_EQ (view->attached (reinterpret_cast<void*> (window.window), kPlatformTypeX11EmbedWindowID), kResultOk);
        await ([&] { return host.pump(), window.describeContent() == "535 x 267"; });
        return view;
    }

    /** Waits for ticks that come from now on. @returns whether they come on this thread, which runs the host's loop */
    bool ticksHere()
    {
        await ([this, now = manager.ticks.load()] { return host.pump(), manager.ticks > now + 2; });
        return manager.ticker.load() == std::this_thread::get_id();
    }
};

}   // namespace

TEST_F (Vst3ViewTest, HasASizeButNoWindowUntilItIsAttached)
{
    Instance instance (module, host);
    EXPECT_EQ (instance.controller->createView (nullptr), nullptr);
    EXPECT_EQ (instance.controller->createView ("other"), nullptr);

    for (int i = 0; i < 3; ++i)
    {
        const auto view = owned (instance.controller->createView (ViewType::kEditor));
        ViewRect size;
        EXPECT_EQ (view->getSize (&size), kResultOk);
        EXPECT_EQ (std::pair (size.getWidth(), size.getHeight()), std::pair (535, 267));
        EXPECT_EQ (view->canResize(), kResultFalse);
        EXPECT_EQ (view->isPlatformTypeSupported (kPlatformTypeX11EmbedWindowID), kResultTrue);
        EXPECT_EQ (view->isPlatformTypeSupported (kPlatformTypeHWND), kResultFalse);
        EXPECT_EQ (instance.controller->createView (ViewType::kEditor), nullptr);   // there is one editor
    }
}

TEST_F (Vst3ViewTest, RunsItsEventsOnTheHostsLoopOrElseOnAThreadOfItsOwn)
{
    for (const auto loop : { Loop::runs, Loop::none, Loop::refuses, Loop::unimplemented, Loop::runs })
        for (const auto frameGoesFirst : { true, false })
        {
            host.loop = loop;
            ParentWindow window;
            Instance instance (module, host);
            const auto view = open (instance, window);
            EXPECT_EQ (ticksHere(), loop == Loop::runs);

            if (frameGoesFirst)
                view->setFrame (nullptr);

            EXPECT_EQ (view->removed(), kResultOk);
            view->setFrame (nullptr);
            EXPECT_EQ (window.describeContent(), "0");
            EXPECT_TRUE (host.handlers.empty());
            EXPECT_FALSE (ticksHere());
        }
}

TEST_F (Vst3ViewTest, SharesOneLoopThatTakesADescriptorOnceAndOpensAgain)
{
    host.loop = Loop::runs;
    ParentWindow windows[2];
    Instance first (module, host), second (module, host);

    for (int round = 0; round < 2; ++round)
    {
        auto view = open (first, windows[0]);
        const auto other = open (second, windows[1]);
        EXPECT_EQ (host.refusals, 0);
        view->removed();
        EXPECT_TRUE (ticksHere());
        EXPECT_EQ (windows[1].describeContent(), "535 x 267");
        view = open (first, windows[0]);
        EXPECT_TRUE (ticksHere());
    }
}

TEST_F (Vst3ViewTest, OutlivesItsParentWindow)
{
    for (const auto loop : { Loop::runs, Loop::none })
    {
        host.loop = loop;
        ParentWindow window;
        Instance instance (module, host);
        const auto view = open (instance, window);
        window.destroy();
        ticksHere();
        EXPECT_EQ (view->removed(), kResultOk);
    }
}
