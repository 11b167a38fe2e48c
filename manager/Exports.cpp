// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodManager.h"

namespace
{

/** The manager of the process. It goes with the library, which pods free after they have left. At the end of the process
    there may still be some, and threads that serve them to the last: then it stays. */
struct ProcessManager
{
    ~ProcessManager()
    {
        if (manager->isEmpty())
            delete manager;
    }

    baylink::PodManager* const manager = new baylink::PodManager;
};

baylink::PodManager& getManager()
{
    static const ProcessManager holder;
    return *holder.manager;
}

}   // namespace

#define BAY_LINK_EXPORT extern "C" __attribute__ ((visibility ("default")))

BAY_LINK_EXPORT void BayLinkManagerVersion (baylink::IPod*, int* outA, int* outB)
{
    // Every pod that keeps the contract fits.
    if (outA != nullptr)
        *outA = baylink::kHearsOfPlaying;

    if (outB != nullptr)
        *outB = 0;
}

BAY_LINK_EXPORT void BayLinkManagerConnect2 (baylink::IPod* pod, int numChannels)
{
    getManager().connect (pod, numChannels);
}
