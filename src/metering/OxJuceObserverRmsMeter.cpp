// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxJuceObserverRmsMeter.h"

#include "platform/Vectorised.h"

#include <numeric>

namespace
{

using Sums = std::array<float, OxJuceObserverRmsMeter::kNumLanes>;

/** Eight samples at any address, in one register where the processor has one as wide. They are read in place: a copy into
    one comes in halves, and a reference to one counts as a register's boundary for some compilers. */
using Eight [[gnu::vector_size (8 * sizeof (float)), gnu::aligned (alignof (float)), gnu::may_alias]] = float;
static_assert (OxJuceObserverRmsMeter::kNumLanes == 4 * 8);

/** Adds squares to sums that do not wait for each other; the caller compiles it for its processor.
    @param load gives the eight samples from an index on, @param sampleAt the one there */
template <typename Load, typename SampleAt>
[[gnu::always_inline]] inline void addInLanes (Sums& sums, int numSamples, Load load, SampleAt sampleAt)
{
    Eight* const lanes = reinterpret_cast<Eight*> (sums.data());
    Eight a = lanes[0], b = lanes[1], c = lanes[2], d = lanes[3];
    Eight samples;
    int i = 0;

    for (; i + OxJuceObserverRmsMeter::kNumLanes <= numSamples; i += OxJuceObserverRmsMeter::kNumLanes)
    {
        load (i, samples);
        a += samples * samples;
        load (i + 8, samples);
        b += samples * samples;
        load (i + 16, samples);
        c += samples * samples;
        load (i + 24, samples);
        d += samples * samples;
    }

    lanes[0] = a;
    lanes[1] = b;
    lanes[2] = c;
    lanes[3] = d;

    for (std::size_t lane = 0; i < numSamples; ++i, ++lane)
        sums[lane] += sampleAt (i) * sampleAt (i);
}

DUO_VECTORISED
void addSquares (Sums& sums, const float* samples, int numSamples)
{
    const auto load = [=] (int i, Eight& to) { to = *reinterpret_cast<const Eight*> (samples + i); };
    addInLanes (sums, numSamples, load, [=] (int i) { return samples[i]; });
}

/** Of `first` plus `share` times `second`. */
DUO_VECTORISED
void addSquares (Sums& sums, const float* first, const float* second, float share, int numSamples)
{
    const auto load = [=] (int i, Eight& to)
    {
        to = *reinterpret_cast<const Eight*> (first + i);
        to += share * *reinterpret_cast<const Eight*> (second + i);
    };
    addInLanes (sums, numSamples, load, [=] (int i) { return first[i] + share * second[i]; });
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

    for (int done = 0; done < block.getNumSamples();)
    {
        const auto run = std::min (block.getNumSamples() - done, windowLength - samplesInWindow);

        if (isPair)
            addSquares (sumsOfSquares, block.getReadPointer (0, done), block.getReadPointer (1, done),
                        signal == mid ? 1.0f : -1.0f, run);
        else
            addSquares (sumsOfSquares, block.getReadPointer (signal, done), run);

        samplesInWindow += run;
        done += run;

        if (samplesInWindow == windowLength)
            finishWindow (isPair ? 0.25f : 1.0f);
    }
}

void OxJuceObserverRmsMeter::finishWindow (float scale)
{
    const auto sumOfSquares = std::accumulate (sumsOfSquares.begin(), sumsOfSquares.end(), 0.0f);
    blockLevel = std::sqrt (scale * sumOfSquares / static_cast<float> (samplesInWindow));
    sumsOfSquares = {};
    samplesInWindow = 0;
}
