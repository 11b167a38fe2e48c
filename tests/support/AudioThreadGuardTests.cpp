// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/AudioThreadGuard.h"

#include <thread>

#include <dlfcn.h>

#include <gtest/gtest.h>

#include "support/GuardProbe.h"

namespace
{

void makeAndForget()
{
    static int* volatile kept;
    kept = new int[10];
    delete[] kept;
}

TEST (AudioThreadGuardTest, CountsWhatALoadedLibraryDoes)
{
    auto* const library = ::dlopen (DUO_GUARD_PROBE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE (library, nullptr);
    const auto* const probes = static_cast<const GuardProbe*> (::dlsym (library, "guardProbes"));
    ASSERT_NE (probes, nullptr);

    for (const auto* probe = probes; probe->deed != nullptr; ++probe)
    {
        SCOPED_TRACE (probe->deed);
        AudioThreadGuard guard;
        probe->perform();
        const auto counts = guard.counts();

        EXPECT_EQ (counts.allocations != 0, probe->expected.allocations != 0);

        if (AudioThreadGuard::canCountLocks())
        {
            EXPECT_EQ (counts.allocations, probe->expected.allocations);
            EXPECT_EQ (counts.locks, probe->expected.locks);
            EXPECT_EQ (counts.systemCalls, probe->expected.systemCalls);
        }
    }

    ::dlclose (library);
}

TEST (AudioThreadGuardTest, CountsWhatTheProgramItselfDoesWhileItLives)
{
    makeAndForget();
    AudioThreadGuard outer;
    makeAndForget();

    {
        AudioThreadGuard inner;
        makeAndForget();
        EXPECT_EQ (inner.counts().allocations, 2);
    }

    EXPECT_EQ (outer.counts().allocations, 4);
}

TEST (AudioThreadGuardTest, LeavesOtherThreadsOut)
{
    AudioThreadGuard::Counts other;
    AudioThreadGuard guard;
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
    EXPECT_LT (guard.counts().allocations, 100);   // the thread's own
}

}   // namespace
