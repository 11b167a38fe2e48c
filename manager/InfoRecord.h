// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pod/PodManagerContract.h"

#include <array>
#include <atomic>

namespace baylink
{

/** A `PodInfo` that one thread at a time replaces while others read it whole.

    There are two copies; a writer fills the one that is not shown and then shows it, so a writer that is held up
    half-way keeps no reader from an answer. */
class InfoRecord
{
public:
    /** Shows `info` from now on [one thread at a time]. */
    void publish (const PodInfo& info) noexcept;

    /** [audio thread] Starts over only when a whole newer record was shown meanwhile. */
    PodInfo read() const noexcept;

private:
    using Words = std::array<std::uint64_t, sizeof (PodInfo) / sizeof (std::uint64_t)>;
    static_assert (sizeof (Words) == sizeof (PodInfo));

    std::atomic<std::uint32_t> shown { 0 };   // counts up; its lowest bit chooses the copy
    std::array<std::atomic<std::uint64_t>, std::tuple_size_v<Words>> copies[2] {};
};

}   // namespace baylink
