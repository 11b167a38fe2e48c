// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodManager.h"
#include "TestPod.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <set>

using namespace baylink;

namespace
{

std::vector<PodId> podIds (PodManager& manager)
{
    std::vector<PodId> ids (kMaxPods);
    ids.resize (static_cast<std::size_t> (manager.getPodIds (ids.data())));
    return ids;
}

}   // namespace

TEST (PodManagerTest, TellsAPodToOthersInTheOrderOfArrival)
{
    PodManager manager;
    TestSender sender;
    TestListener listener;
    manager.connect (&sender, 10);
    manager.connect (&listener, 2);
    manager.connect (&listener, 4);
    EXPECT_EQ (podIds (manager), (std::vector { sender.id, listener.id }));

    const auto info = manager.getPodInfo (sender.id);
    EXPECT_EQ (info.valid, 1);
    EXPECT_EQ (info.typeKey, kSenderTypeKey);
    EXPECT_EQ (info.numChannels, 10);
    EXPECT_EQ (info.gain, 0.5f);
    EXPECT_STREQ (info.name, "Track");

    manager.setPodGain (sender.id, 0.75f);
    manager.setPodGain (sender.id, std::nanf (""));
    EXPECT_EQ (manager.getPodInfo (sender.id).gain, 0.75f);
    EXPECT_EQ (manager.getPodInfo (listener.id).gain, 0.5f);

    EXPECT_TRUE (manager.openStream (sender.id, 1));
    manager.setChannels (sender.id, 6);
    manager.setChannels (listener.id, 6);
    EXPECT_EQ (manager.getPodInfo (sender.id).numChannels, 1);
    EXPECT_EQ (manager.getPodInfo (listener.id).numChannels, 6);
}

TEST (PodManagerTest, CutsALongNameBehindAWholeCharacter)
{
    const std::string full (131, 'a'), twoBytes = "\xc3\xa9", fourBytes = "\xf0\x9f\x8e\xb5";
    const std::pair<std::string, std::size_t> cases[] = {
        { "", 0 },
        { full, 131 },
        { full + "b", 131 },
        { full.substr (1) + twoBytes, 130 },
        { full.substr (2) + twoBytes, 131 },
        { full.substr (3) + fourBytes, 128 },
    };

    for (const auto& [name, length] : cases)
    {
        PodManager manager;
        TestPod pod (name, 1);
        manager.connect (&pod, 1);
        EXPECT_EQ (manager.getPodInfo (pod.id).name, name.substr (0, length));
        manager.setPodName (pod.id, "other");
        manager.setPodName (pod.id, name.c_str());
        EXPECT_EQ (manager.getPodInfo (pod.id).name, name.substr (0, length));
    }
}

TEST (PodManagerTest, HoldsItsFullNumberOfPodsAndNoMore)
{
    PodManager manager;
    std::vector<std::unique_ptr<TestSender>> pods;
    std::set<PodId> ids;

    for (int round = 0; round < 2; ++round)
    {
        for (int i = 0; i < kMaxPods; ++i)
        {
            pods.push_back (std::make_unique<TestSender>());
            manager.connect (pods.back().get(), 1);
            EXPECT_GT (pods.back()->id, 0);
            ids.insert (pods.back()->id);
        }

        TestSender oneTooMany;
        manager.connect (&oneTooMany, 1);
        EXPECT_EQ (oneTooMany.manager, nullptr);
        EXPECT_EQ (oneTooMany.id, kNoPod);
        EXPECT_EQ (podIds (manager).size(), static_cast<std::size_t> (kMaxPods));
        pods.clear();
        EXPECT_TRUE (podIds (manager).empty());
    }

    EXPECT_EQ (ids.size(), 2u * kMaxPods) << "an id came twice";
}

TEST (PodManagerTest, LetsBadCallsChangeNothing)
{
    PodManager manager;
    TestSender sender, refused;
    TestListener listener;
    manager.connect (nullptr, 2);
    manager.connect (&sender, 2);
    manager.connect (&listener, 2);
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
    EXPECT_EQ (refused.manager, nullptr);
    EXPECT_EQ (listener.offers, 0);
    EXPECT_TRUE (listener.isLinkedTo (sender));
    EXPECT_STREQ (manager.getPodInfo (sender.id).name, "Track");

    // Any number may be a position, and the stream still stands at its beginning.
    manager.writeAudioAt (sender.id, from, 64, std::numeric_limits<std::int64_t>::max());
    manager.readAudioAt (listener.id, to, 64, sender.id, std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ (target, std::vector<float> (64, 7.0f));
}

TEST (PodManagerTest, LinksManyListenersAndAFewPodsEach)
{
    PodManager manager;
    std::vector<std::unique_ptr<TestSender>> pods;
    TestListener listener, other;
    manager.connect (&listener, 2);
    manager.connect (&other, 2);

    for (int i = 0; i < 9; ++i)
    {
        pods.push_back (std::make_unique<TestSender>());
        manager.connect (pods.back().get(), 1);
        EXPECT_EQ (manager.link (listener.id, pods.back()->id), i < 8);
        EXPECT_TRUE (manager.link (other.id, pods.front()->id));
    }

    EXPECT_EQ (listener.linkedPods().size(), 8u);
    EXPECT_EQ (other.linkedPods().size(), 1u);
    manager.unlink (listener.id, pods[3]->id);
    EXPECT_TRUE (manager.link (listener.id, pods[8]->id));
    pods.front()->leave();
    EXPECT_EQ (listener.removals + other.removals, 2);
    EXPECT_EQ (listener.linkedPods().size(), 7u);
    EXPECT_TRUE (other.linkedPods().empty());
}
