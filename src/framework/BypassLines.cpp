// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/BypassLines.h"

namespace
{

constexpr int kCapacity = 16383;   // samples: a longer latency is delayed by this much

}   // namespace

void BypassLines::make (int numChannels)
{
    while (static_cast<int> (lines.size()) < numChannels)
        lines.push_back (std::make_unique<CDelayFilter<float>> (kCapacity));
}

void BypassLines::push (const juce::AudioSampleBuffer& block) noexcept
{
    for (int channel = 0; channel < std::min (block.getNumChannels(), static_cast<int> (lines.size())); ++channel)
        lines[static_cast<std::size_t> (channel)]->push (block.getReadPointer (channel), block.getNumSamples());
}

void BypassLines::process (juce::AudioSampleBuffer& block, int latency) noexcept
{
    for (int channel = 0; channel < std::min (block.getNumChannels(), static_cast<int> (lines.size())); ++channel)
    {
        auto& line = *lines[static_cast<std::size_t> (channel)];
        line.setDelay (latency);
        line.process (block.getWritePointer (channel), block.getNumSamples());
    }
}
