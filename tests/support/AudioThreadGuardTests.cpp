// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/AudioThreadGuard.h"

#include <thread>

#include <dlfcn.h>

#include <gtest/gtest.h>

static void makeAndForget()
{
    ::operator delete (::operator new (40));
}

static void checkDeed (const char* name, void (*deed)(), AudioThreadGuard::Counts expected)
{
    SCOPED_TRACE (name);
    AudioThreadGuard guard;
    deed();
    const auto counts = guard.counts();
    EXPECT_EQ (counts.allocations != 0, expected.allocations != 0);

    if (AudioThreadGuard::canCountLocks())
    {
        EXPECT_EQ (counts.allocations, expected.allocations);
        EXPECT_EQ (counts.locks, expected.locks);
        EXPECT_EQ (counts.systemCalls, expected.systemCalls);
    }
}

TEST (AudioThreadGuardTest, CountsWhatALoadedLibraryDoes)
{
    auto* const library = ::dlopen (DUO_GUARD_PROBE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE (library, nullptr);
    auto* const forEachDeed = ::dlsym (library, "forEachDeed");
    ASSERT_NE (forEachDeed, nullptr);
    reinterpret_cast<void (*) (decltype (&checkDeed))> (forEachDeed) (checkDeed);
    ::dlclose (library);
}

TEST (AudioThreadGuardTest, CountsWhatItsOwnThreadDoesWhileItLives)
{
    AudioThreadGuard::Counts other;
    makeAndForget();
    AudioThreadGuard outer;
    makeAndForget();

    {
        AudioThreadGuard inner;
        makeAndForget();
        EXPECT_EQ (inner.counts().allocations, 2);
    }

    EXPECT_EQ (outer.counts().allocations, 4);
    std::thread (
        [&other]
        {
            AudioThreadGuard own;

            for (int i = 0; i < 100; ++i)
                makeAndForget();

            other = own.counts();
        })
        .join();
    EXPECT_EQ (other.allocations, 200);
    EXPECT_LT (outer.counts().allocations, 100);   // the thread's own
}
