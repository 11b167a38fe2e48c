// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PodStream.h"
#include "StreamMatcher.h"
#include "platform/Relaxed.h"

namespace baylink
{

/** One listener's hold on one pod.

    It is made and ended on other threads by one word; all else belongs to the listener's audio thread. */
class PodLink
{
public:
    /** Points at `podId` from now on. @param serial differs from every other link's
        @param streamAge the age of the pod's stream now, 0 when it has none */
    void make (PodId podId, std::uint32_t serial, std::uint64_t streamAge) noexcept;
    void end() noexcept;

    /** A link that a listener made by itself while it was waiting for another pod [under the manager's lock]. */
    bool isStopgap = false;

    /** @returns 0 without a link. */
    PodId podId() const noexcept { return static_cast<PodId> (static_cast<std::uint32_t> (target.load())); }

    /** Reads the next block from the pod's stream [the listener's audio thread]. */
    void read (const PodStream& stream, float* const* channels, const StreamMatcher::Block& block) noexcept;

private:
    std::atomic<std::uint64_t> target { 0 };   // serial, pod id
    Relaxed<std::uint64_t> ageWhenMade { 0 };

    std::uint64_t currentTarget = 0, currentAge = 0;
    StreamMatcher matcher;
};

}   // namespace baylink
