// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/SharedWords.h"
#include "pod/PodManagerContract.h"

#include <array>

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
    static constexpr int kNumWords = sizeof (PodInfo) / sizeof (platform::sharedWords::Word);
    static_assert (sizeof (PodInfo) == kNumWords * sizeof (platform::sharedWords::Word));

    std::atomic<std::uint32_t> shown { 0 };   // counts up; its lowest bit chooses the copy
    std::array<platform::sharedWords::Word, kNumWords> copies[2] {};
};

}   // namespace baylink
