// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodManager.h"

#include "pod/IPod.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <limits>
#include <numeric>

namespace baylink
{
namespace
{

constexpr int kSlotBits = 12;
static_assert (1 << kSlotBits == kMaxPods);

std::mt19937_64 makeRandom()
{
    // The clock as well: where the device is a fixed sequence, two sessions still draw apart.
    std::random_device device;
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    std::seed_seq seed {
        device(), device(), device(), device(), static_cast<unsigned> (now), static_cast<unsigned> (now >> 32)
    };
    return std::mt19937_64 (seed);
}

bool isValidChannelCount (int numChannels) noexcept
{
    return numChannels >= 1 && numChannels <= kMaxPodChannels;
}

void setName (PodInfo& info, const char* name) noexcept
{
    constexpr auto longest = sizeof (info.name) - 1;
    std::size_t length = 0;

    while (name != nullptr && length <= longest && name[length] != 0)
        ++length;

    if (length > longest)
    {
        const auto continuesCharacter = [name] (std::size_t at)
        { return (static_cast<unsigned char> (name[at]) & 0xc0) == 0x80; };

        for (length = longest; length > 0 && continuesCharacter (length);)
            --length;
    }

    std::memset (info.name, 0, sizeof (info.name));

    if (length > 0)
        std::memcpy (info.name, name, length);
}

std::uint64_t joinGain (PodId id, float gain) noexcept
{
    std::uint32_t bits;
    std::memcpy (&bits, &gain, sizeof (bits));
    return std::uint64_t { static_cast<std::uint32_t> (id) } << 32 | bits;
}

}   // namespace

PodManager::PodManager() : slots (new PodSlot[kMaxPods]), freeSlots (kMaxPods), random (makeRandom())
{
    std::iota (freeSlots.begin(), freeSlots.end(), 0);
    order.reserve (kMaxPods);
}

PodManager::~PodManager() = default;

void PodManager::connect (IPod* pod, int numChannels)
{
    if (pod == nullptr || ! isValidChannelCount (numChannels))
        return;

    PodInfo info;
    info.valid = 1;
    info.typeKey = pod->getTypeKey();
    info.numChannels = numChannels;
    setName (info, pod->getPodName());

    const Lock lock (mutex);
    const auto* const known = find (pod->id);

    if (freeSlots.empty() || (known != nullptr && known->pod == pod))
        return;

    const auto drawn = std::uniform_int_distribution<std::size_t> (0, freeSlots.size() - 1) (random);
    std::swap (freeSlots[drawn], freeSlots.back());
    const auto index = freeSlots.back();
    freeSlots.pop_back();

    auto& slot = slots[static_cast<std::size_t> (index)];
    const auto id = drawId (index);
    slot.pod = pod;
    slot.playing = false;
    slot.told = info;
    publish (slot);
    slot.idAndGain.store (joinGain (id, info.gain), std::memory_order_release);
    order.push_back (id);

    pod->manager = this;
    pod->id = id;
}

bool PodManager::isEmpty() const
{
    const Lock lock (mutex);
    return order.empty();
}

PodId PodManager::drawId (int slotIndex)
{
    constexpr auto upperBits = std::numeric_limits<PodId>::digits - kSlotBits;

    for (;;)
        if (const auto id = static_cast<PodId> (random() >> (64 - upperBits)) << kSlotBits | slotIndex; id != 0)
            return id;
}

PodSlot* PodManager::find (PodId id) const noexcept
{
    if (id <= 0)
        return nullptr;

    auto& slot = slots[static_cast<std::size_t> (id & (kMaxPods - 1))];
    return slot.id() == id ? &slot : nullptr;
}

void PodManager::publish (PodSlot& slot)
{
    slot.info.publish (slot.told);
}

void PodManager::disconnect (PodId id)
{
    std::vector<PodId> listeners;

    {
        Lock lock (mutex);
        auto* const slot = find (id);

        if (slot == nullptr)
            return;

        listeners = endLinksTo (*slot);

        if (auto* const links = slot->links.load (std::memory_order_relaxed))
            for (auto& own : *links)
                own.end();

        slot->idAndGain.store (0);

        if (auto* const stream = slot->stream.exchange (nullptr))
            idleStreams.push_back (stream);

        slot->pod = nullptr;
        slot->wishes.clear();
        order.erase (std::find (order.begin(), order.end(), id));
        setRestoredAs (*slot, kNoPod);
        freeSlots.push_back (static_cast<int> (slot - slots.get()));

        // A pod may leave in a call of ours; calls from other threads come to their end first.
        callEnded.wait (lock,
                        [this, id, self = std::this_thread::get_id()]
                        {
                            return std::none_of (calls.begin(), calls.end(),
                                                 [&] (const PodCall& call)
                                                 { return call.id == id && call.thread != self; });
                        });
    }

    for (const auto listener : listeners)
        callPod (listener, kNoPod, [id] (IPod& pod) { pod.onPodRemoved (id); });

    grantWishes();
}

int PodManager::getPodIds (PodId* outIds)
{
    if (outIds == nullptr)
        return 0;

    const Lock lock (mutex);
    std::copy (order.begin(), order.end(), outIds);
    return static_cast<int> (order.size());
}

void PodManager::setChannels (PodId id, int numChannels)
{
    const Lock lock (mutex);
    auto* const slot = find (id);

    // What listeners read follows the stream, where there is one.
    if (slot == nullptr || ! isValidChannelCount (numChannels) || slot->stream.load() != nullptr)
        return;

    slot->told.numChannels = numChannels;
    publish (*slot);
}

void PodManager::setBlockSize (PodId, int)
{
    // Streams and links take blocks of any length.
}

bool PodManager::openStream (PodId id, int numChannels)
{
    if (! isValidChannelCount (numChannels))
        return false;

    std::unique_ptr<PodStream> built;

    for (Lock lock (mutex);;)
    {
        auto* const slot = find (id);

        if (slot == nullptr)
            return false;

        auto* const former = slot->stream.load();

        if (former != nullptr && former->numChannels() == numChannels)
            return true;

        if (auto* const stream = takeStream (numChannels, built))
        {
            // A reader meets the former stream with the former number of channels, or none, never one with the other's.
            slot->stream.store (nullptr);
            slot->told.numChannels = numChannels;
            publish (*slot);
            slot->stream.store (stream);

            if (former != nullptr)
                idleStreams.push_back (former);

            return true;
        }

        // A new one has megabytes to clear, which nobody else needs to wait for; all may be different afterwards.
        lock.unlock();
        built = std::make_unique<PodStream> (numChannels);
        lock.lock();
    }
}

/** @returns an empty stream: `built`, if there is one, else one that a former pod left, else null [under the lock]. */
PodStream* PodManager::takeStream (int numChannels, std::unique_ptr<PodStream>& built)
{
    PodStream* stream = nullptr;

    if (built != nullptr)
    {
        stream = streams.emplace_back (std::move (built)).get();
    }
    else
    {
        const auto idle = std::find_if (idleStreams.begin(), idleStreams.end(),
                                        [numChannels] (const PodStream* left)
                                        { return left->numChannels() == numChannels && ! left->isWriting(); });

        if (idle == idleStreams.end())
            return nullptr;

        stream = *idle;
        idleStreams.erase (idle);
    }

    stream->begin (++serial);
    return stream;
}

void PodManager::setPodName (PodId id, const char* name)
{
    const Lock lock (mutex);
    auto* const slot = find (id);

    if (slot == nullptr || name == nullptr)
        return;

    setName (slot->told, name);
    publish (*slot);
}

}   // namespace baylink
