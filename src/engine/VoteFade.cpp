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
    stepOfRamps = -2000.0f / (static_cast<float> (hertz) * 100.0f);
    falling.clear();
    rising.clear();

    for (auto gain = 1.0f; gain > 0.0f; gain += stepOfRamps)
        falling.push_back (gain);

    for (auto gain = 0.0f; gain < 1.0f; gain -= stepOfRamps)
        rising.push_back (gain);

    position = std::min (position, static_cast<int> (std::min (falling.size(), rising.size())) - 1);
}

VoteFade::Event VoteFade::apply (juce::AudioSampleBuffer& block) noexcept
{
    if (voteFadeStep == 0.0f)
    {
        voteFadeStep = stepOfRamps;
        position = 0;
    }

    const auto isRising = voteFadeStep > 0.0f;
    const auto& ramp = isRising ? rising : falling;
    const auto numSamples = block.getNumSamples();
    const auto inRamp = std::min (numSamples, static_cast<int> (ramp.size()) - position);

    for (int channel = 0; channel < block.getNumChannels(); ++channel)
    {
        auto* const samples = block.getWritePointer (channel);
        multiply (samples, ramp.data() + position, inRamp);

        if (! isRising)
            juce::FloatVectorOperations::multiply (samples + inRamp, 0.0f, numSamples - inRamp);
    }

    position += inRamp;

    if (position < static_cast<int> (ramp.size()))
        return Event::none;

    position = 0;
    voteFadeStep = isRising ? 0.0f : -voteFadeStep;
    return isRising ? Event::finished : Event::silent;
}
