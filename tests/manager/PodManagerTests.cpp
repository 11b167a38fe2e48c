// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestPod.h"

#include <atomic>
#include <limits>
#include <numeric>
#include <set>
#include <thread>

using namespace baylink;

struct PodManagerTest : testing::Test
{
    PodManager manager;
    TestPod sender { &manager }, listener { &manager, "Own", kDuoJudgeTypeKey };
    std::vector<PodId> pods = std::vector<PodId> (kMaxPods);
};

TEST_F (PodManagerTest, TellsAPodToOthersInTheOrderOfArrival)
{
    manager.connect (&listener, 4);
    EXPECT_TRUE (manager.getPodIds (pods.data()) == 2 && pods[0] == sender.id && pods[1] == listener.id);
    manager.setPodGain (sender.id, 0.75f);
    manager.setPodGain (sender.id, std::numeric_limits<float>::quiet_NaN());
    EXPECT_TRUE (manager.openStream (sender.id, 10));

    for (const auto& pod : { sender.id, listener.id })
    {
        manager.setChannels (pod, 6);   // no longer where a stream is open
        const auto isSender = pod == sender.id;
        const auto info = manager.getPodInfo (pod);
        EXPECT_TRUE (info.valid == 1 && info.typeKey == (isSender ? 1 : kDuoJudgeTypeKey));
        EXPECT_TRUE (info.numChannels == (isSender ? 10 : 6) && info.gain == (isSender ? 0.75f : 0.5f));
        EXPECT_STREQ (info.name, isSender ? "Track" : "Own");
    }
}

TEST_F (PodManagerTest, CutsALongNameBehindAWholeCharacter)
{
    constexpr auto twoBytes = "\xc3\xa9", fourBytes = "\xf0\x9f\x8e\xb5";
    const std::tuple<std::size_t, const char*, std::size_t> cases[] = {
        { 0, "", 0 }, { 131, "b", 131 }, { 130, twoBytes, 130 }, { 129, twoBytes, 131 }, { 128, fourBytes, 128 }
    };

    for (const auto& [letters, tail, length] : cases)
    {
        const auto name = std::string (letters, 'a') + tail;
        TestPod pod (&manager, name);
        manager.setPodName (sender.id, name.c_str());

        for (const auto id : { pod.id, sender.id })
            EXPECT_EQ (manager.getPodInfo (id).name, name.substr (0, length));
    }
}

TEST_F (PodManagerTest, HoldsItsFullNumberOfPodsAndNoMore)
{
    std::set<PodId> ids { sender.id, listener.id };

    for (int round = 0; round < 2; ++round)
    {
        std::vector<std::unique_ptr<TestPod>> others;

        while (others.size() < kMaxPods - 2)
            ids.insert (others.emplace_back (std::make_unique<TestPod> (&manager))->id);

        const TestPod oneTooMany { &manager };
        EXPECT_TRUE (oneTooMany.manager == nullptr && oneTooMany.id == kNoPod);
        EXPECT_EQ (manager.getPodIds (pods.data()), kMaxPods);
    }

    EXPECT_EQ (manager.getPodIds (pods.data()), 2);
    EXPECT_EQ (ids.size(), 2u * kMaxPods - 2u) << "an id came twice";
    EXPECT_GT (*ids.begin(), 0);
}

TEST_F (PodManagerTest, LetsBadCallsChangeNothing)
{
    TestPod refused;
    manager.connect (nullptr, 2);
    manager.openStream (sender.id, 2);
    listener.choose (sender.id);
    std::vector<float> block (64, 1.0f), target (64, 7.0f);
    const float* const from[] = { block.data(), nullptr };
    float* const to[] = { target.data(), nullptr };
    const PodId wishes[] = { -5, 0, kNoPod, listener.id };

    for (const auto number : { -1, 0, 11 })
    {
        manager.connect (&refused, number);
        manager.setChannels (listener.id, number);
        EXPECT_FALSE (manager.openStream (sender.id, number));
        manager.writeAudioAt (sender.id, number > 0 ? nullptr : from, number, 0);
        manager.readAudioAt (listener.id, number > 0 ? nullptr : to, number, sender.id, 0);
    }

    for (const auto id : { kNoPod, 0, -77, sender.id ^ 0x10000, std::numeric_limits<PodId>::min() })
    {
        manager.disconnect (id);
        manager.unlink (listener.id, id);
        manager.unlink (id, sender.id);
        EXPECT_FALSE (manager.link (listener.id, id) || manager.link (id, sender.id) || manager.openStream (id, 2));
        EXPECT_TRUE (manager.getPodInfo (id).valid == 0 && manager.getPodInfo (id).numChannels == -1);
        manager.setPodGain (id, 1.0f);
        manager.setPodName (id, "x");
        manager.writeAudio (id, from, 64);
        manager.readAudio (id, to, 64, sender.id);
        manager.readAudio (listener.id, to, 64, id);
    }

    manager.setPodName (sender.id, nullptr);
    manager.restorePod (nullptr, 1, "x", 0, 1, wishes);
    manager.restorePod (&refused, 1, "x", 0, 1, wishes);
    manager.restorePod (&listener, -1, nullptr, -9, -9, wishes);
    manager.restorePod (&listener, 0, "", 9, 4, nullptr);
    manager.restorePod (&listener, 5, "", 9, 4, wishes);
    EXPECT_FALSE (manager.link (listener.id, listener.id));
    EXPECT_EQ (manager.getPodIds (nullptr) + manager.getLinkedPods (nullptr, listener.id), 0);
    EXPECT_EQ (manager.getPodInfo (listener.id).numChannels, 2);
    EXPECT_TRUE (listener.isLinkedTo (sender) && listener.offers == 0 && refused.manager == nullptr);
    EXPECT_STREQ (manager.getPodInfo (sender.id).name, "Track");

    // Any number may be a position, on either side, and the stream still stands at its beginning.
    using Positions = std::numeric_limits<std::int64_t>;

    for (const auto position : { Positions::max(), Positions::min(), Positions::max() - 63, Positions::max() })
    {
        manager.writeAudioAt (sender.id, from, 64, position);
        manager.readAudioAt (listener.id, to, 64, sender.id, ~position);
    }

    manager.readAudio (listener.id, nullptr, 5000, sender.id);
    EXPECT_EQ (target, std::vector<float> (64, 7.0f));
}

TEST_F (PodManagerTest, LinksManyListenersAndEightPodsEach)
{
    const TestPod other { &manager };
    std::array<TestPod, 9> linked;

    for (auto& pod : linked)
    {
        manager.connect (&pod, 2);
        EXPECT_EQ (manager.link (listener.id, pod.id), &pod != &linked.back());
        EXPECT_TRUE (manager.link (other.id, linked.front().id));
    }

    manager.unlink (listener.id, linked[3].id);
    EXPECT_TRUE (manager.link (listener.id, linked[8].id));
    linked.front().leave();
    EXPECT_EQ (listener.removals + other.removals, 2);
    EXPECT_TRUE (listener.linkedPods().size() == 7 && other.linkedPods().empty());
}

TEST_F (PodManagerTest, ReadsTheChannelsThatItsListenerWasToldOf)
{
    manager.openStream (sender.id, 1);
    listener.choose (sender.id);
    manager.openStream (sender.id, 2);   // which the first read does not know yet
    std::vector<float> ones (64, 1.0f), left (64), right (64, 7.0f);
    const float* const both[] = { ones.data(), nullptr };
    float* const channels[] = { left.data(), right.data() };

    for (int block = 0; block < 100; ++block)
        manager.writeAudio (sender.id, both, 64);

    for (const auto& expected : { std::pair (0.0f, 7.0f), { 1.0f, 0.0f } })
    {
        manager.readAudio (listener.id, channels, 64, sender.id);
        EXPECT_EQ (std::pair (left.front(), right.front()), expected);
    }
}

TEST (MatchedTimingTest, NullsInRunningThreadsThatMeetOnceACycle)
{
    constexpr int cycles = 300, cycle = 1024;
    PodManager manager;
    TestPod sender { &manager }, listener { &manager };
    std::atomic<int> arrived { 0 }, wrong { 0 };
    manager.openStream (sender.id, 1);
    listener.choose (sender.id);

    const auto run = [&] (PodId id, int length)
    {
        for (int now = 0, finished = 0; now < cycles * cycle; now += length)
        {
            std::vector<float> block (static_cast<std::size_t> (length)), own (block);
            float *const target[] = { block.data() }, *const source[] = { own.data() };
            const auto label = now % (50 * cycle);   // the transport loops
            std::iota (own.begin(), own.end(), static_cast<float> (now));
            id == sender.id ? manager.writeAudioAt (id, source, length, label)
                            : manager.readAudioAt (id, target, length, sender.id, label);

            for (int i = 0; i < length && id != sender.id; ++i)
                wrong += block[i] == std::max (0.0f, own[i] - kMatchedLatency) ? 0 : 1;

            if ((now + length) % cycle == 0)
                for (++arrived, finished += 2; arrived < finished;)
                    std::this_thread::yield();
        }
    };

    std::thread reading (run, listener.id, 256);
    run (sender.id, 512);
    reading.join();
    EXPECT_EQ (wrong, 0);
}
