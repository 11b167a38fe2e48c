// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/Crossfade.h"

#include "engine/ChannelRule.h"
#include "platform/Vectorised.h"

#include <cstdint>
#include <cstdlib>

namespace
{

/** The share of B, which moves by `increment` a sample. */
struct Ramp
{
    float start, increment;
};

/** The same signal on both sides passes unchanged, to the bit. */
DUO_VECTORISED
void mixInto (float* a, const float* b, float gainOfB, Ramp share, int numSamples)
{
    for (int i = 0; i < numSamples; ++i)
        a[i] += (b[i] * gainOfB - a[i]) * (share.start + static_cast<float> (i) * share.increment);
}

}   // namespace

void Crossfade::setSampleRate (int hertz) noexcept
{
    constexpr int fadeMilliseconds = 40;
    lengthAtRate = hertz * fadeMilliseconds / 1000;
}

void Crossfade::setLength (int samples) noexcept
{
    position = static_cast<int> ((std::int64_t { position } * samples + length / 2) / length);
    length = samples;
}

bool Crossfade::mix (juce::AudioSampleBuffer& a, const juce::AudioSampleBuffer& b, Side side) noexcept
{
    if (side == Side::a && position == 0)
        return false;

    const auto numSamples = a.getNumSamples();

    if (const auto wanted = lengthAtRate > 0 ? lengthAtRate : numSamples; wanted > 0 && wanted != length)
        setLength (wanted);

    const auto direction = side == Side::a ? -1 : 1;
    const auto inFade = std::min (numSamples, side == Side::a ? position : length - position);
    const auto start = position;
    position += direction * inFade;

    for (int channel = 0; channel < std::min (a.getNumChannels(), channelRule::kMaxCompared); ++channel)
    {
        const auto partner = channelRule::findPartner (b.getNumChannels(), a.getNumChannels(), channel);

        if (inFade > 0)
            mixInto (a.getWritePointer (channel), b.getReadPointer (partner.channel), partner.gain,
                     { static_cast<float> (start) / static_cast<float> (length),
                       static_cast<float> (direction) / static_cast<float> (length) },
                     inFade);

        if (const auto atB = side == Side::b ? numSamples - inFade : 0; atB > 0)
            a.copyFrom (channel, inFade, b.getReadPointer (partner.channel, inFade), atB, partner.gain);
    }

    return inFade > 0;
}
