// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pod/IPod.h"

#include <functional>
#include <string>
#include <vector>

/** A pod that holds one link, as the product's listeners do. */
class TestPod : public baylink::IPod
{
public:
    TestPod (std::string podName, std::int32_t podTypeKey) : name (std::move (podName)), typeKey (podTypeKey) {}
    ~TestPod() override { leave(); }

    /** Lets go what it is linked to and takes `podId`. */
    void choose (baylink::PodId podId);
    void leave();
    bool isLinkedTo (const TestPod& pod) const { return selected == pod.id && linkedPods() == std::vector { pod.id }; }
    std::vector<baylink::PodId> linkedPods() const;

    const char* getPodName() override { return name.c_str(); }
    std::int32_t getTypeKey() override { return typeKey; }
    int getPodKind() override { return 2; }
    void onPodLinked (baylink::PodId ownId, baylink::PodId podId) override;
    void onPodRemoved (baylink::PodId podId) override;

    baylink::PodId selected = baylink::kNoPod;
    int offers = 0, removals = 0;
    std::function<void()> whenRemoved;

private:
    const std::string name;
    const std::int32_t typeKey;
};

struct TestSender : TestPod
{
    TestSender() : TestPod ("Track", baylink::kSenderTypeKey) {}
};

struct TestListener : TestPod
{
    TestListener() : TestPod ("Listener", baylink::kDuoJudgeTypeKey) {}
};
