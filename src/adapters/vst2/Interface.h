// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pluginterfaces/fst/aeffectx.h>

/** The plug-in interface's numbers that hosts use and the free declarations have no value for. */
namespace vst2
{

enum EffectOpcode : int
{
    effectSetBypass = 44,
    effectGetTailSize = 52,
    effectIdle = 53
};

enum HostOpcode : int
{
    hostIOChanged = 13,
    hostUpdateDisplay = 42
};

enum PinFlag : int
{
    pinIsActive = 1,
    pinIsStereo = 2,
    pinUsesArrangement = 4
};

constexpr int kStereoSurround = 2, kStereoCentre = 3, kStereoSide = 4, kCentreAndLfe = 5;   // arrangements

/** An arrangement with the room that hosts and plug-ins take it to have. */
struct SpeakerArrangement
{
    int type = kSpeakerArrEmpty;
    int numChannels = 0;
    t_fstSpeakerProperties speakers[8] {};
};

}   // namespace vst2
