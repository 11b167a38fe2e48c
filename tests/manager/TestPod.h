// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PodManager.h"
#include "pod/IPod.h"

#include <gtest/gtest.h>

/** A pod that holds one link, as the product's listeners do. */
class TestPod : public baylink::IPod
{
public:
    /** Connects at once when it is given a manager. */
    explicit TestPod (baylink::PodManager* to = nullptr, std::string podName = "Track", std::int32_t podTypeKey = 1) :
        name (podName), typeKey (podTypeKey)
    {
        if (to != nullptr)
            to->connect (this, 2);
    }

    ~TestPod() override { leave(); }

    /** Lets go what it is linked to and takes `podId`. */
    void choose (baylink::PodId podId)
    {
        if (selected != podId && selected != baylink::kNoPod)
            manager->unlink (id, selected);

        selected = manager->link (id, podId) ? podId : baylink::kNoPod;
    }

    void leave()
    {
        if (manager != nullptr)
            std::exchange (manager, nullptr)->disconnect (id);
    }

    std::vector<baylink::PodId> linkedPods() const
    {
        std::vector<baylink::PodId> ids (baylink::kMaxPods);
        ids.resize (static_cast<std::size_t> (manager->getLinkedPods (ids.data(), id)));
        return ids;
    }

    bool isLinkedTo (const TestPod& pod) const { return selected == pod.id && linkedPods() == std::vector { pod.id }; }

    const char* getPodName() override { return name.c_str(); }
    std::int32_t getTypeKey() override { return typeKey; }
    int getPodKind() override { return 2; }

    void onPodLinked (baylink::PodId ownId, baylink::PodId podId) override
    {
        offers += ownId == id ? 1 : 0;
        choose (podId);
    }

    void onPodRemoved (baylink::PodId podId) override
    {
        ++removals;
        selected = selected == podId ? baylink::kNoPod : selected;
        whenRemoved();
    }

    baylink::PodId selected = baylink::kNoPod;
    int offers = 0, removals = 0;
    std::function<void()> whenRemoved = [] {};

    const std::string name;
    const std::int32_t typeKey;
};
