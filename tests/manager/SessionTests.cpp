// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestPod.h"

#include <atomic>
#include <map>

using namespace baylink;

struct SessionTest : testing::Test
{
    static constexpr PodId kSaved = 123456;

    PodManager manager;
    TestPod other { &manager }, listener { &manager };
};

TEST_F (SessionTest, FindsItsLinkWhateverTheOrderOfLoadingAndFollowsASenderThatIsLoadedAnew)
{
    for (const std::string order : { "CRcr", "CcRr", "CcrR", "cCRr", "cCrR", "crCR", "CclXAN", "CclANX", "CcrlRXAN" })
    {
        TestPod sender, anew, follower;
        const std::map<char, std::function<void()>> steps {
            { 'C', [&] { manager.connect (&sender, 2); } },
            { 'R', [&] { manager.restorePod (&sender, kSaved, "Bass", 2, 0, nullptr); } },
            { 'X', [&] { sender.leave(); } },
            { 'A', [&] { manager.connect (&anew, 2); } },
            { 'N', [&] { manager.restorePod (&anew, sender.id, "Bass", 2, 0, nullptr); } },
            { 'c', [&] { manager.connect (&follower, 2); } },
            { 'r', [&] { manager.restorePod (&follower, 1, "", 2, 1, &kSaved); } },
            { 'l', [&] { follower.choose (sender.id); } },   // by itself
        };
        std::for_each (order.begin(), order.end(), [&] (char step) { steps.at (step)(); });
        EXPECT_TRUE (follower.isLinkedTo (anew.manager != nullptr ? anew : sender)) << order;
        EXPECT_EQ (follower.offers,
                   std::count_if (order.begin(), order.end(), [] (char c) { return c == 'r' || c == 'N'; }));
        EXPECT_STREQ (manager.getPodInfo (follower.selected).name, "Bass");
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
        TestPod stopgap { &manager }, stopgapAgain { &manager }, follower { &manager }, saved { &manager };
        manager.restorePod (&follower, 1, "", 2, 1, &kSaved);
        follower.choose (stopgap.id);
        follower.choose (userChooses ? other.id : stopgap.id);
        stopgap.leave();
        manager.restorePod (&saved, kSaved, "", 2, 0, nullptr);
        manager.restorePod (&stopgapAgain, stopgap.id, "", 0, 0, nullptr);
        EXPECT_TRUE (follower.isLinkedTo (userChooses ? other : saved)) << userChooses;
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
