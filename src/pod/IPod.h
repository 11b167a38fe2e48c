// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Library.h"
#include "pod/PodManagerContract.h"

namespace baylink
{

/** A pod as the manager sees it, and the loader of the manager's library.

    The virtual operations stand in the order that the manager calls them by. */
class IPod
{
public:
    IPod() = default;

    /** Gives the library back. The pod must have left the manager before. */
    virtual ~IPod();

    IPod (const IPod&) = delete;
    IPod& operator= (const IPod&) = delete;

    virtual void reserved2() {}

    /** Loads the manager and makes this pod known to it [any thread but the audio thread]. Does nothing when it is known already.
        What goes wrong is written to the log, and `manager` stays null.
        @param numChannels at most `kMaxPodChannels` */
    virtual void connect (int numChannels);

    virtual const char* getPodName();
    virtual void reserved5() {}

    /** A pod has left the manager [any thread]. */
    virtual void onPodRemoved (PodId podId);

    virtual std::int32_t getTypeKey() = 0;
    virtual int getPodKind() = 0;
    virtual bool getPodFlag();

    /** The manager offers `podId` to the pod `ownId`, which takes it by linking to it [any thread]. */
    virtual void onPodLinked (PodId ownId, PodId podId) = 0;

    IPodManager* manager = nullptr;   // written by the manager's connect export
    PodId id = kNoPod;                // the same
    std::int32_t reservedInt = 0;
    float reservedFloat = 0.5f;
    platform::LibraryHandle module = platform::kNoLibrary;
    std::uint8_t reservedByte = 0;
    bool managerHearsOfPlaying = false;   // `IPodManager::setPlaying` may be called

protected:
    /** The first step of `connect`: true when the library is loaded, now or before. */
    static bool loadManager (IPod* pod, const juce::String& path);

private:
    bool connectToManager (int numChannels);
};

}   // namespace baylink
