// SPDX-License-Identifier: GPL-3.0-or-later

// A library that a test loads at run time, as a host loads a plug-in, and lets do one deed after the other.
#include "support/GuardProbe.h"

#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <shared_mutex>
#include <thread>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{

std::mutex mutex;
std::shared_mutex sharedMutex;
std::condition_variable condition;
void* volatile kept = nullptr;
volatile long number = 0;

void newAndDelete()
{
    auto* const made = new long (number);
    kept = made;
    delete made;
}

void growAndFree()
{
    kept = std::realloc (std::calloc (1, 8), 4000);
    std::free (kept);
}

void alignAndFree()
{
    void* memory = nullptr;
    number = ::posix_memalign (&memory, 64, 128);
    std::free (memory);
}

void waitForNobody()
{
    std::unique_lock lock (mutex);
    condition.wait_until (lock, std::chrono::steady_clock::time_point());
}

void openReadAndClose()
{
    char byte = 0;
    const int file = ::open ("/dev/zero", O_RDONLY);
    number = ::read (file, &byte, 1);
    ::close (file);
}

}   // namespace

extern "C"
{
    extern __attribute__ ((visibility ("default"))) const GuardProbe guardProbes[];

    const GuardProbe guardProbes[] {
        { "counting", [] { number = number + 1; }, { 0, 0, 0 } },
        { "new and delete", newAndDelete, { 2, 0, 0 } },
        { "calloc, realloc and free", growAndFree, { 3, 0, 0 } },
        { "posix_memalign and free", alignAndFree, { 2, 0, 0 } },
        { "a mutex", [] { const std::lock_guard lock (mutex); }, { 0, 1, 0 } },
        { "a mutex that is only tried", [] { const std::unique_lock lock (mutex, std::try_to_lock); }, { 0, 1, 0 } },
        { "a shared mutex", [] { const std::shared_lock lock (sharedMutex); }, { 0, 1, 0 } },
        { "waiting on a condition", waitForNobody, { 0, 2, 0 } },
        { "waking another thread", [] { condition.notify_all(); }, { 0, 0, 1 } },
        { "a file", openReadAndClose, { 0, 0, 3 } },
        { "flushing a stream", [] { std::fflush (stdout); }, { 0, 0, 1 } },
        { "yielding", [] { std::this_thread::yield(); }, { 0, 0, 1 } },
        { "sleeping", [] { std::this_thread::sleep_for (std::chrono::nanoseconds (1)); }, { 0, 0, 1 } },
        { "calling the system by number", [] { number = ::syscall (SYS_getpid); }, { 0, 0, 1 } },
        { nullptr, nullptr, {} },
    };
}
