// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/AudioThreadGuard.h"

#include <atomic>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>

using Counts = AudioThreadGuard::Counts;

void AudioThreadGuard::note (int Counts::*kind) noexcept
{
    for (auto* guard = watching; guard != nullptr; guard = guard->outer)
        ++(guard->seen.*kind);
}

bool AudioThreadGuard::canCountLocks() noexcept
{
    return ! DUO_SANITIZED;
}

// NOLINTBEGIN(bugprone-reserved-identifier, bugprone-macro-parentheses)
#if DUO_SANITIZED

// The sanitizer's own offer; not every compiler ships the header that declares it.
extern "C" int __sanitizer_install_malloc_and_free_hooks (void (*) (const volatile void*, std::size_t),
                                                          void (*) (const volatile void*));

// A guard that counted nothing would let every test pass: better none runs.
[[maybe_unused]] static const bool hooked = []
{
    const auto allocated = [] (const volatile void*, std::size_t) { AudioThreadGuard::note (&Counts::allocations); };
    const auto released = [] (const volatile void*) { AudioThreadGuard::note (&Counts::allocations); };

    if (__sanitizer_install_malloc_and_free_hooks (allocated, released) != 0)
        return true;

    std::fputs ("AudioThreadGuard: the sanitizer takes no allocation hooks\n", stderr);
    std::abort();
}();

#else

// Stand-ins for functions of the C library. The program's own symbols come before those of every shared library, so the
// whole process calls these; each tells the guard and passes the call on. A stand-in has the function's name for the
// linker only, which keeps it clear of the C library's own declaration.
    #define STAND_IN(Result, name, Parameters)                                                                         \
        extern "C" __attribute__ ((visibility ("default"))) Result standInFor_##name Parameters __asm__(#name);        \
        Result standInFor_##name Parameters

    // Memory goes on by the C library's second names: to look the first ones up may itself take memory.
    #define ALLOCATE(Result, name, Parameters, arguments, isCounted)                                                   \
        extern "C" Result __libc_##name Parameters;                                                                    \
        STAND_IN (Result, name, Parameters)                                                                            \
        {                                                                                                              \
            if (isCounted)                                                                                             \
                AudioThreadGuard::note (&Counts::allocations);                                                         \
            return __libc_##name arguments;                                                                            \
        }

    // Whole numbers and addresses travel in the same registers whatever their types, and a function does not mind more
    // of them than it takes: one shape passes on every function below. The longest, syscall, takes seven. The function
    // that would have been called without us is looked up by whoever comes first.
    #define PASS_ON(kind, name)                                                                                        \
        STAND_IN (long, name, (long a, long b, long c, long d, long e, long f, long g))                                \
        {                                                                                                              \
            static std::atomic<long (*) (long, long, long, long, long, long, long)> next { nullptr };                  \
            AudioThreadGuard::note (&Counts::kind);                                                                    \
            if (next.load (std::memory_order_relaxed) == nullptr)                                                      \
                next.store (reinterpret_cast<decltype (next.load())> (::dlsym (RTLD_NEXT, #name)),                     \
                            std::memory_order_relaxed);                                                                \
            return next.load (std::memory_order_relaxed) (a, b, c, d, e, f, g);                                        \
        }

// clang-format off
ALLOCATE (void*, malloc, (std::size_t size), (size), true)
ALLOCATE (void*, calloc, (std::size_t count, std::size_t size), (count, size), true)
ALLOCATE (void*, realloc, (void* memory, std::size_t size), (memory, size), true)
ALLOCATE (void, free, (void* memory), (memory), memory != nullptr)
PASS_ON (allocations, posix_memalign)   PASS_ON (allocations, aligned_alloc)     PASS_ON (allocations, memalign)

PASS_ON (locks, pthread_mutex_lock)     PASS_ON (locks, pthread_mutex_trylock)   PASS_ON (locks, pthread_mutex_timedlock)
PASS_ON (locks, pthread_rwlock_rdlock)  PASS_ON (locks, pthread_rwlock_tryrdlock) PASS_ON (locks, pthread_mutex_clocklock)
PASS_ON (locks, pthread_rwlock_wrlock)  PASS_ON (locks, pthread_rwlock_trywrlock) PASS_ON (locks, pthread_spin_lock)
PASS_ON (locks, pthread_cond_wait)      PASS_ON (locks, pthread_cond_timedwait)  PASS_ON (locks, pthread_cond_clockwait)
PASS_ON (locks, sem_wait)               PASS_ON (locks, sem_trywait)             PASS_ON (locks, sem_timedwait)

// To wake another thread, or to start one, is a call to the system too.
PASS_ON (systemCalls, pthread_cond_signal)  PASS_ON (systemCalls, pthread_cond_broadcast)
PASS_ON (systemCalls, sem_post)             PASS_ON (systemCalls, pthread_create)

PASS_ON (systemCalls, open)   PASS_ON (systemCalls, openat)  PASS_ON (systemCalls, close)   PASS_ON (systemCalls, ioctl)
PASS_ON (systemCalls, read)   PASS_ON (systemCalls, pread)   PASS_ON (systemCalls, recvmsg) PASS_ON (systemCalls, poll)
PASS_ON (systemCalls, write)  PASS_ON (systemCalls, pwrite)  PASS_ON (systemCalls, writev)  PASS_ON (systemCalls, sendmsg)
PASS_ON (systemCalls, fopen)  PASS_ON (systemCalls, fwrite)  PASS_ON (systemCalls, fflush)  PASS_ON (systemCalls, select)
PASS_ON (systemCalls, mmap)   PASS_ON (systemCalls, munmap)  PASS_ON (systemCalls, syscall) PASS_ON (systemCalls, usleep)
PASS_ON (systemCalls, sched_yield)  PASS_ON (systemCalls, nanosleep)  PASS_ON (systemCalls, clock_nanosleep)
// clang-format on

#endif
// NOLINTEND(bugprone-reserved-identifier, bugprone-macro-parentheses)
