// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "InfoRecord.h"
#include "PodLink.h"

#include <memory>
#include <vector>

namespace baylink
{

class IPod;

/** The links that one listener can hold at a time. */
using LinkBank = std::array<PodLink, 8>;

/** A link that a listener shall have as soon as the pod is there: known by the id that it lived under when it was
    linked and, if that is not `kNoPod`, by the one that it was restored under. */
struct Wish
{
    PodId podId = kNoPod, restoredAs = kNoPod;
};

/** One of the manager's places for a pod. */
struct PodSlot
{
    // What the audio threads see; changed under the manager's lock.
    std::atomic<std::uint64_t> idAndGain { 0 };   // id in the upper half, 0 for none; bits of the gain in the lower
    std::atomic<PodStream*> stream { nullptr };   // of the pod that lives here
    std::atomic<LinkBank*> links { nullptr };     // null until the first link is made here
    InfoRecord info;                              // all but the gain
    Relaxed<bool> playing = false;                // the host of this listener, at its next block

    // What only the manager's lock may see.
    IPod* pod = nullptr;
    PodInfo told;                      // as published
    PodId restoredAs = kNoPod;         // the id of a saved session that means this pod
    std::uint64_t restoreSerial = 0;   // the latest of several restored under one id counts
    std::vector<Wish> wishes;
    std::unique_ptr<LinkBank> ownedLinks;   // stays for the next pod

    PodId id() const noexcept { return idOf (idAndGain.load (std::memory_order_acquire)); }

    static PodId idOf (std::uint64_t word) noexcept { return static_cast<PodId> (word >> 32); }
};

}   // namespace baylink
