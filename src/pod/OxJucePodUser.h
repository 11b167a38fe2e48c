// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pod/IPod.h"
#include "pod/OxJucePodSender.h"

/** A pod that listens: keeps the list of the pods that it may hear, and carries its links through a saved state. */
class OxJucePodUser : public OxJucePodSender, public virtual baylink::IPod
{
public:
    /** Fills the list anew with the valid pods of one type key [message thread, or that of an offline pass]; nothing without a manager. */
    virtual void refreshPodList (std::int32_t typeKey);

    int getPodKind() override { return 2; }

protected:
    /** Writes the own pod and its links as attributes; nothing without a manager. Links of a loaded state that still wait
        for their pods are written in place of those that stand meanwhile, so that a save in between loses none. */
    void writePodState (juce::XmlElement& xml);

    /** Hands to the manager what `writePodState` wrote; the manager answers through `onPodLinked`. */
    void readPodState (const juce::XmlElement& xml);

    /** The links of the loaded state are there, or the user has chosen others [any thread but the audio thread]. */
    void forgetAwaitedLinks();

private:
    juce::CriticalSection awaitedLock;
    juce::Array<baylink::PodId> awaitedLinks;   // of the loaded state; guarded by awaitedLock
};
