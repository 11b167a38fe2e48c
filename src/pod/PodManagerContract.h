// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>

/** What the pod manager library and the plug-ins of a process agree on.

    Both sides are built apart and meet at run time only: the order of virtual operations and the layout of `PodInfo` are
    binding, and nothing here needs the toolkit. */
namespace baylink
{

class IPod;

/** Names a pod for the life of the process; a saved session may bring one back (see `IPodManager::restorePod`). */
using PodId = std::int32_t;

constexpr PodId kNoPod = -1;
constexpr int kMaxPods = 4096;
constexpr int kMaxPodChannels = 10;

/** How far behind its own input a matched listener lets its signal out, in samples: a read at a position gives what the
    sender got this many samples before its block at that position. */
constexpr int kMatchedLatency = 4096;

/** Type keys: pods that send audio, and the listeners of this product, which do not list each other. */
constexpr std::int32_t kSenderTypeKey = 0x12345678;
constexpr std::int32_t kDuoJudgeTypeKey = 0x48262383;

/** What the manager tells of a pod, as a value. The default is the answer for a pod that does not exist. */
struct PodInfo
{
    std::uint8_t valid = 0;
    std::uint8_t reserved1 = 0;
    std::int32_t typeKey = -1;
    std::int32_t numChannels = -1;
    std::int32_t reserved12 = 0;
    float gain = 0.5f;     // on the scale of the send gain parameter: 0.5 is 0 dB
    char name[132] = {};   // UTF-8, NUL-terminated
};

static_assert (sizeof (PodInfo) == 152);
static_assert (offsetof (PodInfo, valid) == 0 && offsetof (PodInfo, reserved1) == 1);
static_assert (offsetof (PodInfo, typeKey) == 4 && offsetof (PodInfo, numChannels) == 8);
static_assert (offsetof (PodInfo, reserved12) == 12 && offsetof (PodInfo, gain) == 16);
static_assert (offsetof (PodInfo, name) == 20);

/** The manager object, slot by slot.

    Operations marked [audio thread] never lock, allocate or wait; all others may be called on any other thread. An unknown
    id, a null array or a number out of range changes nothing. The manager calls a pod back (`IPod::onPodRemoved`,
    `IPod::onPodLinked`) on whatever thread made the change. */
class IPodManager
{
public:
    /** The pod leaves: its listeners are told, its links end, and no call reaches it afterwards. */
    virtual void disconnect (PodId id) = 0;

    /** Fills an array of `kMaxPods` entries. @returns how many ids it holds now. */
    virtual int getPodIds (PodId* outIds) = 0;

    /** [audio thread] @returns the default `PodInfo`, which is not `valid`, for an unknown id. */
    virtual PodInfo getPodInfo (PodId id) = 0;

    /** Hands over what a saved session held of a pod that is connected now.

        `uniqueId` is the id that the pod had when the session was saved: from here on links of saved sessions that name it
        mean this pod. Each of `linkedIds` is linked as soon as the pod that it means is there, now or later; the answer
        comes through `IPod::onPodLinked`. */
    virtual void restorePod (IPod* pod, PodId uniqueId, const char* name, int numConnections, int numLinked,
                             const PodId* linkedIds) = 0;

    /** @returns true when reads of `podId` by `ownId` work from now on. */
    virtual bool link (PodId ownId, PodId podId) = 0;
    virtual void unlink (PodId ownId, PodId podId) = 0;

    /** As `getPodIds`, for the pods that `id` is linked to. */
    virtual int getLinkedPods (PodId* outIds, PodId id) = 0;

    virtual void setChannels (PodId id, int numChannels) = 0;
    virtual void setBlockSize (PodId id, int blockSize) = 0;

    /** The pod has audio to give from now on, in `numChannels` channels. Calling it again with the same number keeps the
        stream as it runs. @returns false for an unknown pod or a number outside 1 to `kMaxPodChannels`. */
    virtual bool openStream (PodId id, int numChannels) = 0;

    /** The pod's stream goes on by a block that bears no timeline position [audio thread, one thread a pod]. */
    virtual void writeAudio (PodId id, const float* const* channels, int numSamples) = 0;

    /** The same for a block whose first sample stands at `timeInSamples` [audio thread, one thread a pod]. */
    virtual void writeAudioAt (PodId id, const float* const* channels, int numSamples, std::int64_t timeInSamples) = 0;

    /** Renames a pod, cut to what `PodInfo::name` holds at the end of a whole UTF-8 character. */
    virtual void setPodName (PodId id, const char* name) = 0;

    /** Reads the next block of a linked pod, `kMatchedLatency` samples behind its stream, into as many channels as its
        `PodInfo` tells [audio thread, one thread a listener]. What is missing stays as it was in the arrays. */
    virtual void readAudio (PodId ownId, float* const* channels, int numSamples, PodId podId) = 0;

    /** The same for the listener's block at a timeline position: gives what the pod's sender got `kMatchedLatency` samples
        before its own block at that position. */
    virtual void readAudioAt (PodId ownId, float* const* channels, int numSamples, PodId podId,
                              std::int64_t timeInSamples) = 0;

    /** Says whether the host plays at the listener's next block [audio thread]. Labels may stand still before and behind a
        start, so the start itself tells how the streams lie. Only for a manager that said `kHearsOfPlaying`. */
    virtual void setPlaying (PodId id, bool isPlaying) = 0;

    /** Stores a gain that `PodInfo` gives back, on its scale. */
    virtual void setPodGain (PodId podId, float gain) = 0;

protected:
    ~IPodManager() = default;
};

/** What the first result of the version export says of a manager whose `setPlaying` may be called. */
constexpr int kHearsOfPlaying = 0x706c6179;

/** The library's exports. The first asks whether manager and pod fit; its second result is reserved. The second makes `pod`
    known and gives it its `manager` and `id`; when the manager is full it leaves both alone. */
using ManagerVersionExport = void (*) (IPod* pod, int* outA, int* outB);
using ManagerConnectExport = void (*) (IPod* pod, int numChannels);

constexpr const char* kManagerVersionExport = "BayLinkManagerVersion";
constexpr const char* kManagerConnectExport = "BayLinkManagerConnect2";

}   // namespace baylink
