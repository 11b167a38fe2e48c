// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxJuceObserverRmsMeter.h"

#include "platform/Vectorised.h"

namespace
{

/** Sums the squares of `sampleAt (0)` to `sampleAt (numSamples - 1)` in lanes that do not wait for each other; the caller
    compiles it for its processor. */
template <typename SampleAt>
[[gnu::always_inline]] inline float sumInLanes (int numSamples, SampleAt sampleAt)
{
    constexpr int numLanes = 16;
    float lanes[numLanes] {};
    int i = 0;

    for (; i + numLanes <= numSamples; i += numLanes)
        for (int lane = 0; lane < numLanes; ++lane)
            lanes[lane] += sampleAt (i + lane) * sampleAt (i + lane);

    for (int width = numLanes / 2; width > 0; width /= 2)
        for (int lane = 0; lane < width; ++lane)
            lanes[lane] += lanes[lane + width];

    for (; i < numSamples; ++i)
        lanes[0] += sampleAt (i) * sampleAt (i);

    return lanes[0];
}

DUO_VECTORISED
float sumSquares (const float* samples, int numSamples)
{
    return sumInLanes (numSamples, [=] (int i) { return samples[i]; });
}

/** Of `first` plus `share` times `second`. */
DUO_VECTORISED
float sumSquares (const float* first, const float* second, float share, int numSamples)
{
    return sumInLanes (numSamples, [=] (int i) { return first[i] + share * second[i]; });
}

}   // namespace

void OxJuceObserverRmsMeter::reset()
{
    OxJuceObserverLevelMeter::reset();
    sumOfSquares = 0.0f;
    samplesInWindow = 0;
    windowLength = kWindowLength;
}

void OxJuceObserverRmsMeter::process (const juce::AudioSampleBuffer& block)
{
    const auto numChannels = block.getNumChannels();
    const int signal = channel;
    const bool isPair = signal == mid || signal == side;

    if (isPair ? numChannels < 2 : (signal < 0 || signal >= numChannels))
        return;

    const auto* first = block.getReadPointer (isPair ? 0 : signal);
    const auto* second = isPair ? block.getReadPointer (1) : nullptr;
    const auto scale = isPair ? 0.25f : 1.0f;

    for (int done = 0; done < block.getNumSamples();)
    {
        const auto run = std::min (block.getNumSamples() - done, windowLength - samplesInWindow);
        sumOfSquares += isPair ? sumSquares (first + done, second + done, signal == mid ? 1.0f : -1.0f, run)
                               : sumSquares (first + done, run);

        samplesInWindow += run;
        done += run;

        if (samplesInWindow == windowLength)
        {
            blockLevel = std::sqrt (scale * sumOfSquares / static_cast<float> (samplesInWindow));
            sumOfSquares = 0.0f;
            samplesInWindow = 0;
        }
    }
}
