// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestPod.h"

#include <atomic>

using namespace baylink;

struct SessionTest : testing::Test
{
    static constexpr PodId kSaved = 123456;

    PodManager manager;
    TestPod other { &manager }, listener { &manager };
};

TEST_F (SessionTest, FindsItsLinkWhateverTheOrderOfLoading)
{
    // Connecting and restoring; the sender in capitals.
    for (const std::string order : { "CRcr", "CcRr", "CcrR", "cCRr", "cCrR", "crCR" })
    {
        TestPod sender, follower;

        for (const auto step : order)
            if (step == 'C' || step == 'c')
                manager.connect (step == 'C' ? &sender : &follower, 2);
            else if (step == 'R')
                manager.restorePod (&sender, kSaved, "Bass", 2, 0, nullptr);
            else
                manager.restorePod (&follower, 1, "", 2, 1, &kSaved);

        EXPECT_TRUE (follower.isLinkedTo (sender) && follower.offers == 1) << order;
        EXPECT_STREQ (manager.getPodInfo (sender.id).name, "Bass");
    }
}

TEST_F (SessionTest, TakesTheLivingPodOfASavedIdBeforeACopyThatWasRestoredUnderIt)
{
    TestPod copy { &manager };
    manager.restorePod (&copy, other.id, "Copy", 0, 0, nullptr);
    manager.restorePod (&listener, 1, "", 1, 1, &other.id);
    EXPECT_TRUE (listener.isLinkedTo (other));
}

TEST_F (SessionTest, OffersTheSavedPodOverAStopgapButNotOverTheUsersChoiceNorTheStopgapAgain)
{
    for (const auto userChooses : { false, true })
    {
        TestPod stopgap { &manager }, stopgapAgain { &manager }, follower { &manager }, saved;
        manager.restorePod (&follower, 1, "", 2, 1, &kSaved);
        follower.choose (stopgap.id);
        follower.choose (userChooses ? other.id : stopgap.id);
        stopgap.leave();
        manager.connect (&saved, 2);
        manager.restorePod (&saved, kSaved, "", 2, 0, nullptr);
        manager.restorePod (&stopgapAgain, stopgap.id, "", 0, 0, nullptr);
        EXPECT_TRUE (follower.isLinkedTo (userChooses ? other : saved)) << userChooses;
    }
}

TEST_F (SessionTest, FollowsASenderThatIsLoadedAnew)
{
    for (const auto newComesFirst : { false, true })
    {
        TestPod old { &manager }, follower { &manager }, anew;
        follower.choose (old.id);

        if (! newComesFirst)
            old.leave();

        manager.connect (&anew, 2);
        manager.restorePod (&anew, old.id, "", 0, 0, nullptr);
        old.leave();
        EXPECT_TRUE (follower.isLinkedTo (anew) && follower.removals == 1) << newComesFirst;
    }
}

TEST_F (SessionTest, CallsNoPodOnceItHasLeft)
{
    listener.choose (other.id);
    std::atomic<bool> inCall { false }, leaving { false }, callEnded { false };
    listener.whenRemoved = [&]
    {
        inCall = true;

        // Long enough for a manager that does not wait to come back from the other thread's call.
        for (int turn = 0; turn < 20000 || ! leaving; ++turn)
            std::this_thread::yield();

        callEnded = true;
    };

    std::thread removing ([this] { manager.disconnect (other.id); });

    while (! inCall)
        std::this_thread::yield();

    leaving = true;
    manager.disconnect (listener.id);
    EXPECT_TRUE (callEnded);
    removing.join();
}

TEST_F (SessionTest, LetsACalledPodLeave)
{
    listener.choose (other.id);
    listener.whenRemoved = [this] { manager.disconnect (listener.id); };
    other.leave();
    EXPECT_EQ (manager.getPodInfo (listener.id).valid, 0);
}
