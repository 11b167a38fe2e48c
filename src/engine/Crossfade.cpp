// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/Crossfade.h"

#include "engine/ChannelRule.h"
#include "platform/Vectorised.h"

namespace
{

/** A gain that moves by `increment` a sample for `length` samples and then stays at `end`. */
struct Ramp
{
    float start, increment, end;
    int length;
};

/** The same signal on both sides passes unchanged, to the bit. */
DUO_VECTORISED
void mix (float* outgoing, const float* incoming, Ramp ramp, int numSamples)
{
    for (int i = 0; i < ramp.length; ++i)
        outgoing[i] =
            incoming[i] + (outgoing[i] - incoming[i]) * (ramp.start + static_cast<float> (i) * ramp.increment);

    std::copy (incoming + ramp.length, incoming + numSamples, outgoing + ramp.length);
}

DUO_VECTORISED
void scale (float* samples, Ramp ramp, int numSamples)
{
    for (int i = 0; i < ramp.length; ++i)
        samples[i] *= ramp.start + static_cast<float> (i) * ramp.increment;

    for (int i = ramp.length; i < numSamples; ++i)
        samples[i] *= ramp.end;
}

DUO_VECTORISED
void addPaired (float* destination, const float* source, Ramp ramp, int numSamples)
{
    for (int i = 0; i < ramp.length; ++i)
        destination[i] += source[i] * (ramp.start + static_cast<float> (i) * ramp.increment) * channelRule::kPairGain;

    for (int i = ramp.length; i < numSamples; ++i)
        destination[i] += source[i] * ramp.end * channelRule::kPairGain;
}

/** Of buffers that differ in their number of channels. */
void addIncoming (juce::AudioSampleBuffer& outgoing, const juce::AudioSampleBuffer& incoming, Ramp ramp)
{
    const auto from = incoming.getNumChannels(), to = outgoing.getNumChannels();
    const auto numSamples = outgoing.getNumSamples();

    if (from < 1 || to < 1 || from > 2 || to > 2)
        return;

    for (int channel = 0; channel < std::max (from, to); ++channel)
        addPaired (outgoing.getWritePointer (std::min (channel, to - 1)),
                   incoming.getReadPointer (std::min (channel, from - 1)), ramp, numSamples);
}

}   // namespace

bool Crossfade::step (juce::AudioSampleBuffer& outgoing, const juce::AudioSampleBuffer& incoming) noexcept
{
    constexpr int fadeMilliseconds = 40;
    const auto numSamples = outgoing.getNumSamples();

    if (numSamples == 0)
        return false;

    if (fadeLength == 0)
        fadeLength = sampleRate * fadeMilliseconds / 1000;

    if (fadeLength == 0)
        fadeLength = numSamples;

    if (fadeRemaining == 0)
        fadeRemaining = fadeLength;

    const auto length = std::min (fadeRemaining, numSamples);
    fadeRemaining -= length;
    const auto endGain = std::max (0.0f, static_cast<float> (fadeRemaining) / static_cast<float> (fadeLength));
    const auto increment = (endGain - fadeGain) / static_cast<float> (length);

    const auto numChannels = outgoing.getNumChannels();

    // What follows the ramp within the block lies after the fade.
    if (numChannels == incoming.getNumChannels() && numChannels <= 2)
    {
        for (int channel = 0; channel < numChannels; ++channel)
            mix (outgoing.getWritePointer (channel), incoming.getReadPointer (channel),
                 { fadeGain, increment, 0.0f, length }, numSamples);
    }
    else
    {
        for (int channel = 0; channel < numChannels; ++channel)
            scale (outgoing.getWritePointer (channel), { fadeGain, increment, 0.0f, length }, numSamples);

        addIncoming (outgoing, incoming, { 1.0f - fadeGain, -increment, 1.0f, length });
    }

    fadeGain = endGain;

    if (fadeRemaining > 0)
        return false;

    fadeLength = 0;
    fadeGain = 1.0f;
    return true;
}
