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
    /** Writes the own pod and its links as attributes; nothing without a manager. */
    void writePodState (juce::XmlElement& xml);

    /** Hands to the manager what `writePodState` wrote; the manager answers through `onPodLinked`. */
    void readPodState (const juce::XmlElement& xml);
};
