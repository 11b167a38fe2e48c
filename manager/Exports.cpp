// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodManager.h"

namespace
{

/** The manager of the process; it lives as long as the library. */
baylink::PodManager& getManager()
{
    static baylink::PodManager manager;
    return manager;
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
