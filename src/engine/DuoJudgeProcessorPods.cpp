// SPDX-License-Identifier: GPL-3.0-or-later
// Finding, taking and losing the pod behind source B.
#include "engine/DuoJudgeProcessor.h"

using namespace duoJudge;

void DuoJudgeProcessor::timerTick()
{
    ticks += 1;
    refreshPodList (baylink::kSenderTypeKey);

    if (selectedPodId != baylink::kNoPod)
        return;

    const auto [podId, isHeld] = [this]
    {
        const juce::ScopedLock lock (podLock);
        const auto first = podIds.size() > 1 ? podIds.getUnchecked (1) : baylink::kNoPod;
        return std::pair (first, first != baylink::kNoPod && holdPod (first));
    }();

    if (isHeld)
        takeUpPod (podId);
}

void DuoJudgeProcessor::connectToPod (baylink::PodId podId)
{
    forgetAwaitedLinks();
    const auto isHeld = [&]
    {
        const juce::ScopedLock lock (podLock);   // no block reads in between
        return holdPod (podId);
    }();

    if (isHeld)
        takeUpPod (podId);
}

/** @returns whether the pod is newly held; then `takeUpPod` is to follow, under no lock */
bool DuoJudgeProcessor::holdPod (baylink::PodId podId)
{
    if (manager == nullptr)
        return false;

    // The tick and callbacks may meet here: one pod stays, and no link is left behind.
    if (auto former = selectedPodId.load();
        former != baylink::kNoPod && former != podId && selectedPodId.compare_exchange_strong (former, baylink::kNoPod))
        manager->unlink (id, former);

    if (podId == baylink::kNoPod || podId == selectedPodId || ! manager->link (id, podId))
        return false;

    auto none = baylink::kNoPod;

    if (selectedPodId.compare_exchange_strong (none, podId))
        return true;

    if (none != podId)
        manager->unlink (id, podId);

    return false;
}

void DuoJudgeProcessor::takeUpPod (baylink::PodId podId)
{
    const auto info = manager->getPodInfo (podId);

    // Told too early to be found: a pod that left between its link and this is a lost one.
    if (info.valid == 0)
        return onPodRemoved (podId);

    setParamDirect (SendGain, info.gain, true, ParamOrigin::consequence);
    updateFromParams();   // not a tick later: the former pod's gain is not this one's
}

void DuoJudgeProcessor::onPodLinked (baylink::PodId ownId, baylink::PodId podId)
{
    if (ownId != id)
        return;

    forgetAwaitedLinks();

    // No lock of ours, see below. If the tick came in between, what the manager offers goes before what the tick found.
    for (int tries = 0; tries < 2; ++tries)
    {
        if (holdPod (podId))
            takeUpPod (podId);

        if (selectedPodId == baylink::kNoPod || selectedPodId == podId)
            return;
    }
}

void DuoJudgeProcessor::onPodRemoved (baylink::PodId podId)
{
    if (podId == baylink::kNoPod || selectedPodId != podId)
        return;

    ballot.clear();   // before the pod goes, so that a block that finds none draws nothing any more

    if (auto lost = podId; ! selectedPodId.compare_exchange_strong (lost, baylink::kNoPod))
        return;

    // No lock of ours, whatever the manager's thread holds; and a pod that leaves is nothing that a user could undo.
    setParamDirect (ToggleAB, 0.0f, true, ParamOrigin::consequence);
    setParamDirect (EndTest, 1.0f, true, ParamOrigin::consequence);
    setParamDirect (EndTest, 0.0f, true, ParamOrigin::consequence);
}
