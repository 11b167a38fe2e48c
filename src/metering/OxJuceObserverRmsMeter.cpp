// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxJuceObserverRmsMeter.h"

#include <array>

namespace
{

/** Sums the squares of `sampleAt (0)` to `sampleAt (numSamples - 1)` in lanes that do not wait for each other. */
template <typename SampleAt>
float sumSquares (int numSamples, SampleAt&& sampleAt)
{
    constexpr int numLanes = 16;
    std::array<float, numLanes> lanes {};
    int i = 0;

    for (; i + numLanes <= numSamples; i += numLanes)
        for (int lane = 0; lane < numLanes; ++lane)
        {
            const float sample = sampleAt (i + lane);
            lanes[static_cast<std::size_t> (lane)] += sample * sample;
        }

    float sum = 0.0f;

    for (const auto lane : lanes)
        sum += lane;

    for (; i < numSamples; ++i)
    {
        const float sample = sampleAt (i);
        sum += sample * sample;
    }

    return sum;
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
        const auto *a = first + done, *b = isPair ? second + done : nullptr;

        if (signal == mid)
            sumOfSquares += sumSquares (run, [a, b] (int i) { return a[i] + b[i]; });
        else if (signal == side)
            sumOfSquares += sumSquares (run, [a, b] (int i) { return a[i] - b[i]; });
        else
            sumOfSquares += sumSquares (run, [a] (int i) { return a[i]; });

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
