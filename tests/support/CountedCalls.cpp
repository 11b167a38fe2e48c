// SPDX-License-Identifier: GPL-3.0-or-later

// Stand-ins for functions of the C library. The program's own symbols come before those of every shared library, so the
// whole process calls these; each tells the guard and passes the call on.

#if ! DUO_SANITIZED

    #include <atomic>
    #include <cerrno>
    #include <cstddef>

    #include <dlfcn.h>

    #include "support/AudioThreadGuard.h"

using Counts = AudioThreadGuard::Counts;

// NOLINTBEGIN(bugprone-reserved-identifier, bugprone-macro-parentheses)

    // A stand-in has the function's name for the linker only, which keeps it clear of the C library's own declaration.
    #define STAND_IN(Result, name, Parameters)                                                                         \
        extern "C" __attribute__ ((visibility ("default"))) Result standInFor_##name Parameters __asm__(#name);        \
        Result standInFor_##name Parameters

    // Whole numbers and addresses travel in the same registers whatever their types, and a function does not mind more
    // of them than it takes: one shape passes on every function below. The longest, syscall, takes seven.
    #define PASS_ON(kind, name)                                                                                        \
        STAND_IN (long, name, (long a, long b, long c, long d, long e, long f, long g))                                \
        {                                                                                                              \
            static std::atomic<Function> next { nullptr };                                                             \
            AudioThreadGuard::note (&Counts::kind);                                                                    \
            return findNext (next, #name) (a, b, c, d, e, f, g);                                                       \
        }

namespace
{

using Function = long (*) (long, long, long, long, long, long, long);

/** The function that would have been called without us, looked up by whoever comes first. */
Function findNext (std::atomic<Function>& next, const char* name) noexcept
{
    if (next.load (std::memory_order_relaxed) == nullptr)
        next.store (reinterpret_cast<Function> (::dlsym (RTLD_NEXT, name)), std::memory_order_relaxed);

    return next.load (std::memory_order_relaxed);
}

}   // namespace

// Memory goes on by the C library's second names: to look the first ones up may itself take memory.
extern "C"
{
    void* __libc_malloc (std::size_t);
    void* __libc_calloc (std::size_t, std::size_t);
    void* __libc_realloc (void*, std::size_t);
    void* __libc_memalign (std::size_t, std::size_t);
    void __libc_free (void*);
}

STAND_IN (void*, malloc, (std::size_t size))
{
    AudioThreadGuard::note (&Counts::allocations);
    return __libc_malloc (size);
}

STAND_IN (void*, calloc, (std::size_t count, std::size_t size))
{
    AudioThreadGuard::note (&Counts::allocations);
    return __libc_calloc (count, size);
}

STAND_IN (void*, realloc, (void* memory, std::size_t size))
{
    AudioThreadGuard::note (&Counts::allocations);
    return __libc_realloc (memory, size);
}

STAND_IN (void*, aligned_alloc, (std::size_t alignment, std::size_t size))
{
    AudioThreadGuard::note (&Counts::allocations);
    return __libc_memalign (alignment, size);
}

STAND_IN (int, posix_memalign, (void** result, std::size_t alignment, std::size_t size))
{
    AudioThreadGuard::note (&Counts::allocations);

    if (alignment < sizeof (void*) || (alignment & (alignment - 1)) != 0)
        return EINVAL;

    auto* const memory = __libc_memalign (alignment, size);

    if (memory == nullptr)
        return ENOMEM;

    *result = memory;
    return 0;
}

STAND_IN (void, free, (void* memory))
{
    if (memory != nullptr)
        AudioThreadGuard::note (&Counts::allocations);

    __libc_free (memory);
}

// clang-format off
PASS_ON (locks, pthread_mutex_lock)     PASS_ON (locks, pthread_mutex_trylock)   PASS_ON (locks, pthread_mutex_timedlock)
PASS_ON (locks, pthread_rwlock_rdlock)  PASS_ON (locks, pthread_rwlock_tryrdlock)
PASS_ON (locks, pthread_rwlock_wrlock)  PASS_ON (locks, pthread_rwlock_trywrlock)
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
// NOLINTEND(bugprone-reserved-identifier, bugprone-macro-parentheses)

#endif
