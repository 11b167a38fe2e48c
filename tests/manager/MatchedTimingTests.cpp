// SPDX-License-Identifier: GPL-3.0-or-later
#include "HostRig.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using namespace baylink;

namespace
{

using Order = HostRig::Order;

/** What the transport and the user do; see `HostRig::run`. */
struct Story
{
    const char *name, *script;
};

const Story kStories[] = {
    { "PlaysFromStart", "play 0 90000" },
    { "StandsWhileTheMaterialMoves", "stand 0 1024 stand 0 752 stand 0 272 stand 0 1024 stand 0 272 play 0 30000" },
    { "StopsAndGoesOn", "play 0 30000 stop 30000 play 30000 30000 stand 60000 30000 play 60000 30000" },
    { "Seeks", "play 500000 30000 play 100 30000 play 515000 30000" },
    { "LoopsOverSeveralBlocks", "play 0 10000 loop 10000 20480 120000 play 30480 30000" },
    { "LoopsWithinABlock", "play 0 9000 loop 9000 1000 30000 loop 9000 1024 30000 loop 9000 64 30000 play 1 9000" },
    { "LinksWhilePlaying", "reads 0 play 0 30000 reads 1 play 30000 30000 play 77 30000" },
    { "SenderIsReplaced", "play 0 30000 replace play 30000 30000" },
};

const Story kStoriesWithoutPositions[] = { { "RunsWithoutPositions", "plain 90000" } };

/** One side misses what the other one gets. */
const Story kInterruptedStories[] = {
    { "ListenerIsBypassed", "play 0 30000 listener 0 play 30000 20000 listener 1 play 50000 30000" },
    { "ListenerIsBypassedInASeek", "play 50000 30000 listener 0 play 80000 640 play 0 99 listener 1 play 99 30000" },
    { "ListenerIsBypassedWithoutPositions", "plain 30000 listener 0 plain 50000 listener 1 plain 30000" },
    { "SenderPauses", "play 0 30000 sender 0 play 30000 20000 sender 1 play 50000 30000" },
    { "SenderMissesABlock", "play 0 30720 sender 0 play 30720 64 sender 1 play 30784 30000" },
    { "SenderPausesWithoutPositions", "plain 30000 sender 0 plain 50000 sender 1 plain 30000" },
    { "SenderPausesWhileStanding", "stand 5 30000 sender 0 stand 5 50000 sender 1 stand 5 30000 play 5 30000" },
};

const HostRig::Setup kEqualBlocks[] = {
    { "short blocks, sender first", 64, 64, 64, Order::senderFirst },
    { "short blocks, listener first", 64, 64, 64, Order::listenerFirst },
    { "sender first", 1024, 1024, 1024, Order::senderFirst },
    { "listener first", 1024, 1024, 1024, Order::listenerFirst },
    { "long blocks, sender first", 4096, 4096, 4096, Order::senderFirst },
    { "long blocks, listener first", 4096, 4096, 4096, Order::listenerFirst },
};

const HostRig::Setup kUnequalBlocks[] = {
    { "single samples", 1, 1, 1, Order::drawn },
    { "odd blocks, drawn order", 441, 441, 441, Order::drawn },
    { "sender in parts", 1024, 256, 1024, Order::drawn },
    { "listener in parts", 1024, 1024, 256, Order::drawn },
    { "sender in single samples", 4096, 1, 4096, Order::listenerFirst },
    { "listener in single samples", 4096, 4096, 1, Order::senderFirst },
    { "drawn blocks", 3000, 0, 0, Order::drawn },
    { "drawn cycles and blocks", 0, 0, 0, Order::drawn },
    { "listener ahead", 2048, 64, 64, Order::listenerFirst },
};

const HostRig::Setup kFarApart[] = { { "sender far ahead", 16384, 512, 512, Order::senderFirst } };

template <typename Stories, typename Setups>
void expectNulls (const Stories& stories, const Setups& setups)
{
    for (const Story& story : stories)
        for (const HostRig::Setup& setup : setups)
        {
            HostRig host (setup);
            host.run (story.script);
            EXPECT_EQ (host.wrong, 0) << story.name << ", " << setup.name << ": first at " << host.firstWrong;
            EXPECT_GT (host.compared, 15000);
        }
}

}   // namespace

TEST (MatchedTimingTest, NullsInEveryStoryWithEqualBlocks)
{
    expectNulls (kStories, kEqualBlocks);
}

TEST (MatchedTimingTest, NullsInEveryStoryWithUnequalBlocks)
{
    expectNulls (kStories, kUnequalBlocks);
    expectNulls (kStories, kFarApart);
}

TEST (MatchedTimingTest, NullsWithoutPositionsWhereBothBeganTogether)
{
    expectNulls (kStoriesWithoutPositions, kEqualBlocks);
    expectNulls (kStoriesWithoutPositions, kUnequalBlocks);
}

TEST (MatchedTimingTest, NullsAgainAfterOneSideMissedBlocks)
{
    expectNulls (kInterruptedStories, kEqualBlocks);
}

TEST (MatchedTimingTest, NullsInRunningThreadsThatMeetOnceACycle)
{
    constexpr int cycles = 300, cycle = 1024, senderBlock = 512, listenerBlock = 256;
    PodManager manager;
    TestSender sender;
    TestListener listeners[2];
    manager.connect (&sender, 1);
    manager.openStream (sender.id, 1);
    std::atomic<int> arrived { 0 }, wrong { 0 };

    const auto runInCycles = [&] (int block, auto&& process)
    {
        for (int now = 0, finished = 0; now < cycles * cycle; now += block)
        {
            // The transport loops every fifty cycles.
            process (now, std::int64_t { now % (50 * cycle) });

            if ((now + block) % cycle == 0)
                for (++arrived, finished += 3; arrived < finished;)
                    std::this_thread::yield();
        }
    };

    const auto listen = [&] (TestListener& listener)
    {
        runInCycles (listenerBlock,
                     [&] (int now, std::int64_t label)
                     {
                         float block[listenerBlock] {};
                         float* const channels[] = { block };
                         manager.readAudioAt (listener.id, channels, listenerBlock, sender.id, label);

                         for (int i = 0; i < listenerBlock; ++i)
                             if (block[i] != static_cast<float> (std::max (0, now + i - kMatchedLatency)))
                                 ++wrong;
                     });
    };

    for (auto& listener : listeners)
    {
        manager.connect (&listener, 1);
        listener.choose (sender.id);
    }

    std::thread first ([&] { listen (listeners[0]); }), second ([&] { listen (listeners[1]); });
    runInCycles (senderBlock,
                 [&] (int now, std::int64_t label)
                 {
                     float block[senderBlock];
                     const float* const channels[] = { block };

                     for (int i = 0; i < senderBlock; ++i)
                         block[i] = static_cast<float> (now + i);

                     manager.writeAudioAt (sender.id, channels, senderBlock, label);
                 });
    first.join();
    second.join();
    EXPECT_EQ (wrong, 0);
}
