// SPDX-License-Identifier: GPL-3.0-or-later

// A library that a test loads at run time, as a host loads a plug-in, and lets do one deed after the other.
#include "support/AudioThreadGuard.h"

#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <shared_mutex>
#include <thread>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

static std::mutex mutex;
static std::shared_mutex sharedMutex;
static std::condition_variable condition;
static void* memory = nullptr;
static volatile long number = 0;

static void waitForNobody()
{
    std::unique_lock lock (mutex);
    condition.wait_until (lock, std::chrono::steady_clock::time_point());
}

/** Hands every deed to `check`, with what the guard is to make of it. */
extern "C" __attribute__ ((visibility ("default"))) void forEachDeed (void (*check) (const char* name, void (*deed)(),
                                                                                     AudioThreadGuard::Counts expected))
{
    check ("nothing", [] {}, { 0, 0, 0 });
    check ("new and delete", [] { ::operator delete (::operator new (8)); }, { 2, 0, 0 });
    check ("calloc, realloc and free", [] { std::free (std::realloc (std::calloc (1, 8), 4000)); }, { 3, 0, 0 });
    check ("aligned memory", [] { std::free (::posix_memalign (&memory, 64, 9) == 0 ? memory : nullptr); },
           { 2, 0, 0 });
    check ("a mutex", [] { const std::lock_guard lock (mutex); }, { 0, 1, 0 });
    check ("a mutex that is only tried", [] { const std::unique_lock lock (mutex, std::try_to_lock); }, { 0, 1, 0 });
    check ("a shared mutex", [] { const std::shared_lock lock (sharedMutex); }, { 0, 1, 0 });
    check ("waiting on a condition", waitForNobody, { 0, 2, 0 });
    check ("waking another thread", [] { condition.notify_all(); }, { 0, 0, 1 });
    check ("a file", [] { ::close (::open ("/dev/zero", O_RDONLY)); }, { 0, 0, 2 });
    check ("reading", [] { number = ::read (-1, nullptr, 0); }, { 0, 0, 1 });
    check ("flushing a stream", [] { std::fflush (stdout); }, { 0, 0, 1 });
    check ("yielding", [] { std::this_thread::yield(); }, { 0, 0, 1 });
    check ("sleeping", [] { std::this_thread::sleep_for (std::chrono::nanoseconds (1)); }, { 0, 0, 1 });
    check ("calling the system by number", [] { number = ::syscall (SYS_getpid); }, { 0, 0, 1 });
}
