// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <mutex>
#include <thread>

/** Waits for a lock no longer than ten seconds, so that a test for a deadlock ends. @returns it, held or not */
template <typename Mutex>
std::unique_lock<Mutex> lockWithinSeconds (Mutex& mutex)
{
    std::unique_lock<Mutex> held (mutex, std::try_to_lock);

    for (const auto end = std::chrono::steady_clock::now() + std::chrono::seconds (10);
         ! held && std::chrono::steady_clock::now() < end; held.try_lock())
        std::this_thread::yield();

    return held;
}
