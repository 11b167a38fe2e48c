// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>

/** How two sources of different channel counts are compared: by the first two channels of each. */
namespace channelRule
{

constexpr int kMaxCompared = 2;

/** The gain of one channel that goes into both of a stereo pair: sqrt (2) / 2. */
constexpr float kPairGain = 0.70710678118654752f;

/** The channel of a source that belongs beside a channel of a track, and its gain. */
struct Partner
{
    int channel;
    float gain;
};

/** @param channel of the track, below `kMaxCompared`. A single channel goes into both of a pair; of a pair into a single
                   channel the second one remains. */
constexpr Partner findPartner (int numSourceChannels, int numTrackChannels, int channel) noexcept
{
    if (std::min (numSourceChannels, kMaxCompared) == std::min (numTrackChannels, kMaxCompared))
        return { channel, 1.0f };

    return numSourceChannels == 1 ? Partner { 0, kPairGain } : Partner { 1, 1.0f };
}

}   // namespace channelRule
