// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxJuceObserverRmsMeter.h"

#include "platform/Vectorised.h"

#include <numeric>

namespace
{

using Sums = std::array<float, OxJuceObserverRmsMeter::kNumLanes>;

/** Adds the squares of `sampleAt (0)` to `sampleAt (numSamples - 1)` to sums that do not wait for each other; the caller
    compiles it for its processor. */
template <typename SampleAt>
[[gnu::always_inline]] inline void addInLanes (Sums& sums, int numSamples, SampleAt sampleAt)
{
    constexpr int numLanes = OxJuceObserverRmsMeter::kNumLanes;
    float lanes[numLanes];
    std::copy_n (sums.data(), numLanes, lanes);
    int i = 0;

    for (; i + numLanes <= numSamples; i += numLanes)
        for (int lane = 0; lane < numLanes; ++lane)
            lanes[lane] += sampleAt (i + lane) * sampleAt (i + lane);

    for (int lane = 0; i + lane < numSamples; ++lane)
        lanes[lane] += sampleAt (i + lane) * sampleAt (i + lane);

    std::copy_n (lanes, numLanes, sums.data());
}

DUO_VECTORISED
void addSquares (Sums& sums, const float* samples, int numSamples)
{
    addInLanes (sums, numSamples, [=] (int i) { return samples[i]; });
}

/** Of `first` plus `share` times `second`. */
DUO_VECTORISED
void addSquares (Sums& sums, const float* first, const float* second, float share, int numSamples)
{
    addInLanes (sums, numSamples, [=] (int i) { return first[i] + share * second[i]; });
}

}   // namespace

void OxJuceObserverRmsMeter::reset()
{
    OxJuceObserverLevelMeter::reset();
    sumsOfSquares = {};
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

        if (isPair)
            addSquares (sumsOfSquares, first + done, second + done, signal == mid ? 1.0f : -1.0f, run);
        else
            addSquares (sumsOfSquares, first + done, run);

        samplesInWindow += run;
        done += run;

        if (samplesInWindow == windowLength)
        {
            const auto sumOfSquares = std::accumulate (sumsOfSquares.begin(), sumsOfSquares.end(), 0.0f);
            blockLevel = std::sqrt (scale * sumOfSquares / static_cast<float> (samplesInWindow));
            sumsOfSquares = {};
            samplesInWindow = 0;
        }
    }
}
