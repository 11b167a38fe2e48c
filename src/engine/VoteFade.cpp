// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/VoteFade.h"

#include "platform/Vectorised.h"

#include <algorithm>

namespace
{

DUO_VECTORISED
void multiply (float* samples, const float* gains, int numSamples)
{
    for (int i = 0; i < numSamples; ++i)
        samples[i] *= gains[i];
}

}   // namespace

void VoteFade::setSampleRate (int hertz)
{
    // A whole ramp takes 50 ms; an infinite step before a rate is known.
    const auto step = 2000.0f / (static_cast<float> (hertz) * 100.0f);
    const auto formerLength = falling.size();
    falling.clear();

    for (auto gain = 1.0f; gain > 0.0f; gain -= step)
        falling.push_back (gain);

    rising.assign (1, 0.0f);
    rising.insert (rising.end(), falling.rbegin(), falling.rend() - 1);

    if (formerLength > 0)
        depth =
            static_cast<int> ((static_cast<std::size_t> (depth) * falling.size() + formerLength / 2) / formerLength);
}

bool VoteFade::fall (juce::AudioSampleBuffer& block) noexcept
{
    const auto numSamples = block.getNumSamples();
    const auto inRamp = std::min (numSamples, static_cast<int> (falling.size()) - depth);

    for (int channel = 0; channel < block.getNumChannels(); ++channel)
    {
        auto* const samples = block.getWritePointer (channel);
        multiply (samples, falling.data() + depth, inRamp);
        juce::FloatVectorOperations::multiply (samples + inRamp, 0.0f, numSamples - inRamp);
    }

    depth += inRamp;
    return depth == static_cast<int> (falling.size());
}

bool VoteFade::rise (juce::AudioSampleBuffer& block) noexcept
{
    const auto inRamp = std::min (block.getNumSamples(), depth);

    for (int channel = 0; channel < block.getNumChannels(); ++channel)
        multiply (block.getWritePointer (channel), rising.data() + rising.size() - static_cast<std::size_t> (depth),
                  inRamp);

    depth -= inRamp;
    return depth == 0;
}
