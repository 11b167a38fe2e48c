// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/AudioThreadGuard.h"

#include <cstdio>
#include <cstdlib>

namespace
{

thread_local AudioThreadGuard* watching = nullptr;

}   // namespace

AudioThreadGuard::AudioThreadGuard() noexcept : outer (watching)
{
    watching = this;
}

AudioThreadGuard::~AudioThreadGuard()
{
    watching = outer;
}

void AudioThreadGuard::note (int Counts::*kind) noexcept
{
    for (auto* guard = watching; guard != nullptr; guard = guard->outer)
        ++(guard->seen.*kind);
}

bool AudioThreadGuard::canCountLocks() noexcept
{
    return ! DUO_SANITIZED;
}

#if DUO_SANITIZED

// The sanitizer's own offer; not every compiler ships the header that declares it.
extern "C" int __sanitizer_install_malloc_and_free_hooks (void (*) (const volatile void*, std::size_t),
                                                          void (*) (const volatile void*));   // NOLINT

// A guard that counted nothing would let every test pass: better none runs.
[[maybe_unused]] static const bool hooked = []
{
    const auto allocated = [] (const volatile void*, std::size_t)
    { AudioThreadGuard::note (&AudioThreadGuard::Counts::allocations); };
    const auto released = [] (const volatile void*)
    { AudioThreadGuard::note (&AudioThreadGuard::Counts::allocations); };

    if (__sanitizer_install_malloc_and_free_hooks (allocated, released) != 0)
        return true;

    std::fputs ("AudioThreadGuard: the sanitizer takes no allocation hooks\n", stderr);
    std::abort();
}();

#endif
