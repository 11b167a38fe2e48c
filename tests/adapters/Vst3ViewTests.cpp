// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/ParentWindow.h"
#include "adapters/RawHost.h"

namespace
{

constexpr std::pair none (0, 0), whole (535, 267);

struct Vst3ViewTest : PlugInTest
{
    IPtr<IPlugView> attach (Instance& instance, ParentWindow& parent)
    {
        auto view = owned (instance.controller->createView (ViewType::kEditor));
        view->setFrame (&host);
        EXPECT_EQ (view->attached (reinterpret_cast<void*> (parent.window), kPlatformTypeX11EmbedWindowID), kResultOk);
        return view;
    }
    IPtr<IPlugView> open (Instance& instance, ParentWindow& parent)
    {
        auto view = attach (instance, parent);
        await ([&] { return host.pump(), parent.getContentSize() == whole; });
        return view;
    }
};

}   // namespace

TEST_F (Vst3ViewTest, HasASizeButNoWindowUntilItIsAttached)
{
    Instance instance (module, host);
    EXPECT_TRUE (instance.controller->createView (nullptr) == nullptr &&
                 instance.controller->createView ("other") == nullptr);
    const auto view = owned (instance.controller->createView (ViewType::kEditor));
    ViewRect size;
    EXPECT_EQ (view->getSize (&size), kResultOk);
    EXPECT_EQ (std::pair (size.getWidth(), size.getHeight()), whole);
    EXPECT_EQ (view->canResize() & view->isPlatformTypeSupported (kPlatformTypeHWND), kResultFalse);
}

TEST_F (Vst3ViewTest, RunsItsEventsOnTheHostsLoopOrElseOnAThreadOfItsOwn)
{
    for (const auto loop :
         std::initializer_list<std::optional<tresult>> { kResultOk, {}, kResultFalse, kNotImplemented, kResultOk })
        for (const auto& [frameGoesFirst, parentGoesFirst] :
             { std::pair (true, false), { false, false }, { false, true } })
        {
            host.loop = loop;
            ParentWindow parent;
            Instance instance (module, host);
            const auto view = open (instance, parent);
            EXPECT_EQ (ticksHere(), loop == kResultOk);

            if (parentGoesFirst)
                parent.destroy(), ticksHere();

            if (frameGoesFirst)
                view->setFrame (nullptr);

            EXPECT_EQ (view->removed() | view->setFrame (nullptr), kResultOk);
            EXPECT_TRUE (parentGoesFirst || parent.getContentSize() == none);
            EXPECT_TRUE (host.handlers.empty());
            EXPECT_FALSE (ticksHere());
        }
}

TEST_F (Vst3ViewTest, SharesOneLoopThatTakesADescriptorOnceAndOpensAgain)
{
    host.loop = kResultOk;
    ParentWindow parents[2];
    Instance first (module, host), second (module, host);

    for (int round = 0; round < 2; ++round)
    {
        auto view = open (first, parents[0]);
        const auto other = open (second, parents[1]);
        EXPECT_EQ (view->removed(), kResultOk);
        EXPECT_TRUE (ticksHere());
        EXPECT_EQ (parents[1].getContentSize(), whole);
        view = open (first, parents[0]);
        EXPECT_TRUE (ticksHere());
        EXPECT_EQ (host.refusals, 0);
    }
}

TEST_F (Vst3ViewTest, OpensWhileOtherThreadsMakeInstancesThatNoLoopWaitsFor)
{
    ParentWindow parent;
    Instance shown (module, host);

    for (int round = 0; round < 40; ++round)
    {
        host.loop = round % 2 == 0 ? std::optional<tresult> (kResultOk) : std::nullopt;
        std::atomic<bool> stop { false };
        const auto come = [&]
        {
            for (auto block = noise (2, 512); ! stop;)
                EXPECT_EQ (Instance (module, host).process (&block, &block), kResultOk);
        };
        std::thread others[] { std::thread (come), std::thread (come), std::thread (come) };
        const auto view = attach (shown, parent);
        stop = true;

        for (auto& other : others)
            other.join();

        EXPECT_EQ (view->removed(), kResultOk);
    }
}
