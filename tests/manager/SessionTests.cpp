// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodManager.h"
#include "TestPod.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>

using namespace baylink;

namespace
{

constexpr PodId kSavedSender = 123456, kSavedListener = 654321;

/** A process into which a host brings a saved session of one sender and its listener. */
struct SessionTest : testing::Test
{
    PodManager manager;
    TestSender sender, other;
    TestListener listener;

    void connectSender() { manager.connect (&sender, 2); }
    void restoreSender() { manager.restorePod (&sender, kSavedSender, "Bass", 2, 0, nullptr); }
    void connectListener() { manager.connect (&listener, 2); }
    void restoreListener() { manager.restorePod (&listener, kSavedListener, "", 2, 1, &kSavedSender); }

    /** As the product does on its timer while it holds no link. */
    void tick()
    {
        if (listener.selected == kNoPod)
            listener.choose (other.id);
    }
};

}   // namespace

TEST_F (SessionTest, FindsItsLinkWhateverTheOrderOfLoading)
{
    std::vector<int> steps { 0, 1, 2, 3 };   // 0 before 1 and 2 before 3

    do
    {
        const auto at = [&] (int step) { return std::find (steps.begin(), steps.end(), step); };

        if (at (0) > at (1) || at (2) > at (3))
            continue;

        PodManager process;
        TestSender loadedSender;
        TestListener loadedListener;

        for (const auto step : steps)
            if (step == 0)
                process.connect (&loadedSender, 2);
            else if (step == 1)
                process.restorePod (&loadedSender, kSavedSender, "Bass", 2, 0, nullptr);
            else if (step == 2)
                process.connect (&loadedListener, 2);
            else
                process.restorePod (&loadedListener, kSavedListener, "", 2, 1, &kSavedSender);

        EXPECT_TRUE (loadedListener.isLinkedTo (loadedSender)) << testing::PrintToString (steps);
        EXPECT_EQ (loadedListener.offers, 1);
        EXPECT_STREQ (process.getPodInfo (loadedSender.id).name, "Bass");
    } while (std::next_permutation (steps.begin(), steps.end()));
}

TEST_F (SessionTest, TakesTheLivingPodOfASavedIdBeforeACopyThatWasRestoredUnderIt)
{
    connectSender();
    connectListener();
    manager.connect (&other, 2);
    manager.restorePod (&other, sender.id, "Copy", 0, 0, nullptr);
    manager.restorePod (&listener, kSavedListener, "", 1, 1, &sender.id);
    EXPECT_TRUE (listener.isLinkedTo (sender));
}

TEST_F (SessionTest, OffersTheSavedPodOverAStopgapButNotTheStopgapAgain)
{
    connectListener();
    manager.connect (&other, 2);
    restoreListener();
    tick();
    EXPECT_TRUE (listener.isLinkedTo (other));
    const auto stopgap = other.id;
    other.leave();
    connectSender();
    restoreSender();
    EXPECT_TRUE (listener.isLinkedTo (sender));
    TestSender otherAgain;
    manager.connect (&otherAgain, 2);
    manager.restorePod (&otherAgain, stopgap, "", 0, 0, nullptr);
    EXPECT_TRUE (listener.isLinkedTo (sender));
}

TEST_F (SessionTest, LeavesTheUsersChoiceAlone)
{
    TestSender chosen;
    connectListener();
    manager.connect (&other, 2);
    manager.connect (&chosen, 2);
    restoreListener();
    tick();
    listener.choose (chosen.id);
    connectSender();
    restoreSender();
    EXPECT_TRUE (listener.isLinkedTo (chosen));
}

TEST_F (SessionTest, FollowsASenderThatIsLoadedAnew)
{
    for (const auto newComesFirst : { false, true })
    {
        auto old = std::make_unique<TestSender>();
        TestSender anew;
        TestListener follower;
        manager.connect (old.get(), 2);
        manager.connect (&follower, 2);
        follower.choose (old->id);
        const auto oldId = old->id;

        if (! newComesFirst)
            old.reset();

        manager.connect (&anew, 2);
        manager.restorePod (&anew, oldId, "", 0, 0, nullptr);
        old.reset();
        EXPECT_TRUE (follower.isLinkedTo (anew)) << newComesFirst;
        EXPECT_EQ (follower.removals, 1);
    }
}

TEST_F (SessionTest, CallsNoPodOnceItHasLeft)
{
    connectSender();
    connectListener();
    listener.choose (sender.id);
    std::atomic<bool> inCall { false }, leaving { false }, callEnded { false }, leftDuringCall { false };
    listener.whenRemoved = [&]
    {
        inCall = true;

        // Long enough for a manager that does not wait to come back from the other thread's call.
        for (int turn = 0; turn < 20000 || ! leaving; ++turn)
            std::this_thread::yield();

        callEnded = true;
    };

    std::thread removing ([this] { manager.disconnect (sender.id); });

    while (! inCall)
        std::this_thread::yield();

    leaving = true;
    manager.disconnect (listener.id);
    leftDuringCall = ! callEnded;
    removing.join();
    EXPECT_FALSE (leftDuringCall);
}

TEST_F (SessionTest, LetsACalledPodComeBackToTheManager)
{
    connectSender();
    connectListener();
    manager.connect (&other, 2);
    listener.choose (sender.id);
    listener.whenRemoved = [this]
    {
        manager.setPodGain (other.id, manager.getPodInfo (other.id).gain + 0.25f);
        listener.choose (other.id);
        manager.disconnect (listener.id);
    };
    sender.leave();
    EXPECT_EQ (manager.getPodInfo (other.id).gain, 0.75f);
    EXPECT_EQ (manager.getPodInfo (listener.id).valid, 0);
}
