// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodManager.h"

#include "pod/IPod.h"

#include <algorithm>
#include <utility>

// Who is linked to whom, now and once the rest of a saved session is there.
namespace baylink
{

bool PodManager::link (PodId ownId, PodId podId)
{
    const Lock lock (mutex);
    auto* const own = find (ownId);
    const auto* const pod = find (podId);

    if (own == nullptr || pod == nullptr || own == pod)
        return false;

    if (own->ownedLinks == nullptr)
    {
        own->ownedLinks = std::make_unique<LinkBank>();
        own->links.store (own->ownedLinks.get(), std::memory_order_release);
    }

    auto& links = *own->ownedLinks;
    const auto isTo = [] (PodId wanted) { return [wanted] (const PodLink& held) { return held.podId() == wanted; }; };

    if (std::any_of (links.begin(), links.end(), isTo (podId)))
        return true;

    const auto unused = std::find_if (links.begin(), links.end(), isTo (0));

    if (unused == links.end())
        return false;

    const auto* const stream = pod->stream.load();
    unused->isStopgap = ! own->wishes.empty() && ! isOffered (ownId, podId);
    unused->make (podId, static_cast<std::uint32_t> (++serial), stream == nullptr ? 0 : stream->age());
    return true;
}

void PodManager::unlink (PodId ownId, PodId podId)
{
    const Lock lock (mutex);
    auto* const own = find (ownId);

    if (own == nullptr || podId <= 0)
        return;

    if (own->ownedLinks != nullptr)
        for (auto& held : *own->ownedLinks)
            if (held.podId() == podId)
                held.end();

    // A listener that lets a pod go by itself has chosen; one that makes room for what it is offered has not.
    if (! isOffered (ownId))
        own->wishes.clear();
}

int PodManager::getLinkedPods (PodId* outIds, PodId id)
{
    const Lock lock (mutex);
    const auto* const slot = find (id);

    if (outIds == nullptr || slot == nullptr || slot->ownedLinks == nullptr)
        return 0;

    auto count = 0;

    for (const auto& held : *slot->ownedLinks)
        if (held.podId() != 0)
            outIds[count++] = held.podId();

    return count;
}

void PodManager::restorePod (IPod* pod, PodId uniqueId, const char* name, int, int numLinked, const PodId* linkedIds)
{
    if (pod == nullptr)
        return;

    {
        const Lock lock (mutex);
        auto* const slot = find (pod->id);

        if (slot == nullptr || slot->pod != pod)
            return;

        setRestoredAs (*slot, uniqueId > 0 ? uniqueId : kNoPod);
        slot->wishes.clear();

        if (linkedIds != nullptr)
            for (const auto* id = linkedIds; id != linkedIds + std::clamp (numLinked, 0, kMaxPods); ++id)
                if (*id > 0)
                    slot->wishes.push_back ({ *id, kNoPod });
    }

    if (name != nullptr && *name != 0)
        setPodName (pod->id, name);

    grantWishes();
}

/** Turns the links to a pod that leaves into wishes. @returns their listeners [under the lock]. */
std::vector<PodId> PodManager::endLinksTo (const PodSlot& leaving)
{
    std::vector<PodId> listeners;
    const auto leavingId = leaving.id();

    for (const auto id : order)
    {
        auto& slot = *find (id);

        if (slot.ownedLinks == nullptr)
            continue;

        for (auto& held : *slot.ownedLinks)
        {
            if (held.podId() != leavingId)
                continue;

            held.end();
            listeners.push_back (id);

            if (! held.isStopgap)
                slot.wishes.push_back ({ leavingId, leaving.restoredAs });
        }
    }

    return listeners;
}

/** Lets `savedId` mean the pod of `slot`, and what the slot meant before mean the next latest [under the lock]. */
void PodManager::setRestoredAs (PodSlot& slot, PodId savedId)
{
    const auto formerId = std::exchange (slot.restoredAs, kNoPod);

    if (const auto former = meant.find (formerId); former != meant.end() && former->second == &slot)
    {
        PodSlot* latest = nullptr;

        for (const auto id : order)
            if (auto* const other = find (id); other->restoredAs == formerId)
                if (latest == nullptr || other->restoreSerial > latest->restoreSerial)
                    latest = other;

        if (latest != nullptr)
            former->second = latest;
        else
            meant.erase (former);
    }

    if (savedId == kNoPod)
        return;

    slot.restoredAs = savedId;
    slot.restoreSerial = ++serial;
    meant[savedId] = &slot;
}

/** @returns the pod that a saved id means now, or `kNoPod` [under the lock]. */
PodId PodManager::findMeant (PodId savedId) const
{
    if (find (savedId) != nullptr)
        return savedId;

    const auto restored = meant.find (savedId);
    return restored != meant.end() ? restored->second->id() : kNoPod;
}

/** Takes a wish that can come true now out of its list. */
bool PodManager::takeWish (PodId& listener, PodId& podId)
{
    const Lock lock (mutex);

    for (const auto id : order)
    {
        auto& slot = *find (id);

        for (auto wish = slot.wishes.begin(); wish != slot.wishes.end(); ++wish)
        {
            podId = findMeant (wish->podId);

            if (podId == kNoPod)
                podId = findMeant (wish->restoredAs);

            if (podId == kNoPod || podId == id)
                continue;

            listener = id;
            slot.wishes.erase (wish);

            // The listener may have come upon the pod by itself: now the link is the one that it was waiting for.
            if (slot.ownedLinks != nullptr)
                for (auto& held : *slot.ownedLinks)
                    if (held.podId() == podId)
                        held.isStopgap = false;

            return true;
        }
    }

    return false;
}

void PodManager::grantWishes()
{
    for (PodId listener = kNoPod, podId = kNoPod; takeWish (listener, podId);)
        callPod (listener, podId, [&] (IPod& pod) { pod.onPodLinked (listener, podId); });
}

/** @returns whether `id` is being asked to link `podId`, or any pod with `kNoPod` [under the lock]. */
bool PodManager::isOffered (PodId id, PodId podId) const
{
    return std::any_of (calls.begin(), calls.end(),
                        [=] (const PodCall& call) {
                            return call.id == id && call.offered != kNoPod &&
                                   (podId == kNoPod || call.offered == podId);
                        });
}

/** Calls a pod that is still there, with the lock open: the call may come back to the manager, and may wait for what
    another thread holds while that one waits for the manager. `disconnect` waits until it has ended.
    @param offered the pod that it is asked to link, `kNoPod` for another message */
void PodManager::callPod (PodId id, PodId offered, const std::function<void (IPod&)>& call)
{
    const auto self = std::this_thread::get_id();
    Lock lock (mutex);
    const auto* const slot = find (id);

    if (slot == nullptr)
        return;

    auto& pod = *slot->pod;
    calls.push_back ({ id, offered, self });
    lock.unlock();

    call (pod);

    lock.lock();
    calls.erase (std::find_if (calls.begin(), calls.end(),
                               [&] (const PodCall& running)
                               { return running.id == id && running.offered == offered && running.thread == self; }));
    callEnded.notify_all();
}

}   // namespace baylink
