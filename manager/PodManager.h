// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PodSlot.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <random>
#include <thread>
#include <unordered_map>

namespace baylink
{

/** Keeps the pods of a process, their links and their audio.

    What changes the structure goes through one lock that is held only for a moment and never while a pod is called;
    what the audio threads need is published in atomic words. An id names its slot in the lowest twelve bits, so an
    audio thread finds a pod in one step; the upper bits are drawn at random and tell it from former pods there. */
class PodManager final : public IPodManager
{
public:
    PodManager();
    ~PodManager();

    PodManager (const PodManager&) = delete;
    PodManager& operator= (const PodManager&) = delete;

    /** Makes `pod` known and gives it its manager and its id. Does nothing for a null pod, one that is known already,
        a number of channels outside 1 to `kMaxPodChannels`, or when `kMaxPods` pods are there. */
    void connect (IPod* pod, int numChannels);

    /** @returns true while no pod is there [any thread]. */
    bool isEmpty() const;

    void disconnect (PodId id) override;
    int getPodIds (PodId* outIds) override;
    PodInfo getPodInfo (PodId id) override;
    void restorePod (IPod* pod, PodId uniqueId, const char* name, int numConnections, int numLinked,
                     const PodId* linkedIds) override;
    bool link (PodId ownId, PodId podId) override;
    void unlink (PodId ownId, PodId podId) override;
    int getLinkedPods (PodId* outIds, PodId id) override;
    void setChannels (PodId id, int numChannels) override;
    void setBlockSize (PodId id, int blockSize) override;
    bool openStream (PodId id, int numChannels) override;
    void writeAudio (PodId id, const float* const* channels, int numSamples) override;
    void writeAudioAt (PodId id, const float* const* channels, int numSamples, std::int64_t timeInSamples) override;
    void setPodName (PodId id, const char* name) override;
    void readAudio (PodId ownId, float* const* channels, int numSamples, PodId podId) override;
    void readAudioAt (PodId ownId, float* const* channels, int numSamples, PodId podId,
                      std::int64_t timeInSamples) override;
    void setPlaying (PodId id, bool isPlaying) override;
    void setPodGain (PodId podId, float gain) override;

private:
    using Lock = std::unique_lock<std::mutex>;

    /** A call into a pod that is under way. */
    struct PodCall
    {
        PodId id = kNoPod, offered = kNoPod;
        std::thread::id thread;
    };

    PodSlot* find (PodId id) const noexcept;
    PodId drawId (int slotIndex);
    PodStream* takeStream (int numChannels, std::unique_ptr<PodStream>& built);
    void publish (PodSlot& slot);
    void writeBlock (PodId id, const float* const* channels, int numSamples, const std::int64_t* label) noexcept;
    void readBlock (PodId ownId, float* const* channels, PodId podId, const StreamMatcher::Block& block) noexcept;

    std::vector<PodId> endLinksTo (const PodSlot& leaving);
    void setRestoredAs (PodSlot& slot, PodId savedId);
    PodId findMeant (PodId savedId) const;
    bool takeWish (PodId& listener, PodId& podId);
    void grantWishes();
    bool isOffered (PodId id, PodId podId = kNoPod) const;

    void callPod (PodId id, PodId offered, const std::function<void (IPod&)>& call);

    const std::unique_ptr<PodSlot[]> slots;

    mutable std::mutex mutex;
    std::condition_variable callEnded;
    std::vector<PodCall> calls;
    std::vector<PodId> order;   // as the pods came
    std::vector<int> freeSlots;
    std::vector<std::unique_ptr<PodStream>> streams;
    std::vector<PodStream*> idleStreams;         // oldest first
    std::unordered_map<PodId, PodSlot*> meant;   // saved ids, with the pod that was restored last under each
    std::uint64_t serial = 0;                    // of links, restored pods and stream ages
    std::mt19937_64 random;
};

}   // namespace baylink
