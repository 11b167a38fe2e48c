// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestPod.h"

// The loader's half of a pod needs the toolkit, which stays out of these tests: they connect by themselves.
namespace baylink
{

IPod::~IPod() = default;
void IPod::connect (int)
{
}
const char* IPod::getPodName()
{
    return "";
}
void IPod::onPodRemoved (PodId)
{
}
bool IPod::getPodFlag()
{
    return false;
}

}   // namespace baylink

void TestPod::choose (baylink::PodId podId)
{
    if (podId == selected)
        return;

    if (selected != baylink::kNoPod)
        manager->unlink (id, selected);

    selected = manager->link (id, podId) ? podId : baylink::kNoPod;
}

void TestPod::leave()
{
    if (manager != nullptr)
        manager->disconnect (id);

    manager = nullptr;
}

std::vector<baylink::PodId> TestPod::linkedPods() const
{
    std::vector<baylink::PodId> ids (baylink::kMaxPods);
    ids.resize (static_cast<std::size_t> (manager->getLinkedPods (ids.data(), id)));
    return ids;
}

void TestPod::onPodLinked (baylink::PodId ownId, baylink::PodId podId)
{
    ++offers;

    if (ownId == id)
        choose (podId);
}

void TestPod::onPodRemoved (baylink::PodId podId)
{
    ++removals;

    if (selected == podId)
        selected = baylink::kNoPod;

    if (whenRemoved)
        whenRemoved();
}
