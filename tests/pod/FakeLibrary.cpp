// SPDX-License-Identifier: GPL-3.0-or-later
// A manager's library that leaves every answer to the test which loaded it; the version question comes as 0 channels.
#include "pod/PodManagerContract.h"

#define EXPORT extern "C" [[gnu::visibility ("default")]]

EXPORT void (*answer) (baylink::IPod*, int);
void (*answer) (baylink::IPod*, int) = nullptr;

EXPORT void BayLinkManagerVersion (baylink::IPod* pod, int*, int*)
{
    answer (pod, 0);
}

EXPORT void BayLinkManagerConnect2 (baylink::IPod* pod, int numChannels)
{
    answer (pod, numChannels);
}
