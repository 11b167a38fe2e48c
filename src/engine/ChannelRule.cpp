// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ChannelRule.h"

namespace channelRule
{

void copy (juce::AudioSampleBuffer& destination, const juce::AudioSampleBuffer& source)
{
    const auto from = source.getNumChannels(), to = destination.getNumChannels();
    const auto numSamples = destination.getNumSamples();

    if (from == to && from <= 2)
    {
        for (int channel = 0; channel < from; ++channel)
            destination.copyFrom (channel, 0, source, channel, 0, numSamples);
    }
    else if (from == 1 && to == 2)
    {
        for (int channel = 0; channel < to; ++channel)
            destination.copyFrom (channel, 0, source.getReadPointer (0), numSamples, kPairGain);
    }
    else if (from == 2 && to == 1)
    {
        destination.copyFrom (0, 0, source, 1, 0, numSamples);
    }
}

}   // namespace channelRule
