// SPDX-License-Identifier: GPL-3.0-or-later
// Finding, taking and losing the pod behind source B.
#include "engine/DuoJudgeProcessor.h"

using namespace duoJudge;

void DuoJudgeProcessor::timerTick()
{
    refreshPodList (baylink::kSenderTypeKey);

    if (selectedPodId != baylink::kNoPod)
        return;

    const juce::ScopedLock lock (podLock);

    if (podIds.size() > 1)
        holdPod (podIds.getUnchecked (1));
}

void DuoJudgeProcessor::connectToPod (baylink::PodId podId)
{
    forgetAwaitedLinks();
    holdPod (podId);
}

void DuoJudgeProcessor::holdPod (baylink::PodId podId)
{
    if (manager == nullptr)
        return;

    // The tick and callbacks may meet here: one pod stays, and no link is left behind.
    if (auto former = selectedPodId.load();
        former != baylink::kNoPod && former != podId && selectedPodId.compare_exchange_strong (former, baylink::kNoPod))
        manager->unlink (id, former);

    if (podId == baylink::kNoPod || podId == selectedPodId || ! manager->link (id, podId))
        return;

    if (auto none = baylink::kNoPod; ! selectedPodId.compare_exchange_strong (none, podId))
    {
        if (none != podId)
            manager->unlink (id, podId);

        return;
    }

    setParamDirect (SendGain, manager->getPodInfo (podId).gain, true, ParamOrigin::consequence);
    updateFromParams();   // not a tick later: the former pod's gain is not this one's
}

void DuoJudgeProcessor::onPodLinked (baylink::PodId ownId, baylink::PodId podId)
{
    if (ownId != id)
        return;

    connectToPod (podId);

    // If the tick came in between, what the manager offers goes before what the tick found.
    if (selectedPodId != baylink::kNoPod && selectedPodId != podId)
        connectToPod (podId);
}

void DuoJudgeProcessor::onPodRemoved (baylink::PodId podId)
{
    if (auto lost = podId; podId == baylink::kNoPod || ! selectedPodId.compare_exchange_strong (lost, baylink::kNoPod))
        return;

    // No lock of ours, whatever the manager's thread holds; and a pod that leaves is nothing that a user could undo.
    setParamDirect (ToggleAB, 0.0f, true, ParamOrigin::consequence);
    setParamDirect (EndTest, 1.0f, true, ParamOrigin::consequence);
    setParamDirect (EndTest, 0.0f, true, ParamOrigin::consequence);
}
