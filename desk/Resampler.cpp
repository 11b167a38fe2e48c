// SPDX-License-Identifier: GPL-3.0-or-later
#include "Resampler.h"

#include <cmath>
#include <numeric>

namespace desk
{
namespace
{

constexpr int kZeroCrossings = 64;     // on either side, at the lower of the two rates
constexpr double kPassband = 0.965;    // of the lower rate's half band; the rest is the slope
constexpr double kKaiserBeta = 12.0;   // side lobes 118 dB down

double besselI0 (double x)
{
    double sum = 1.0, term = 1.0;

    for (int k = 1; term > sum * 1e-17; ++k)
    {
        term *= juce::square (x / (2.0 * k));
        sum += term;
    }

    return sum;
}

double sinc (double x)
{
    const auto angle = juce::MathConstants<double>::pi * x;
    return std::abs (angle) < 1e-9 ? 1.0 : std::sin (angle) / angle;
}

}   // namespace

Resampler::Resampler (int oldRate, int newRate)
{
    const auto divisor = std::gcd (oldRate, newRate);
    step = oldRate / divisor;
    numPhases = newRate / divisor;

    const auto cutoff = std::min (1.0, static_cast<double> (newRate) / oldRate);
    reach = static_cast<int> (std::ceil (kZeroCrossings / cutoff));
    kernels.resize (static_cast<std::size_t> (numPhases) * static_cast<std::size_t> (2 * reach));

    for (int phase = 0; phase < numPhases; ++phase)
        fillPhase (phase, cutoff * kPassband);
}

void Resampler::fillPhase (int phase, double cutoff)
{
    auto* const taps = kernels.data() + static_cast<std::size_t> (phase) * static_cast<std::size_t> (2 * reach);
    const auto window = [this, scale = 1.0 / besselI0 (kKaiserBeta)] (double x)
    { return scale * besselI0 (kKaiserBeta * std::sqrt (std::max (0.0, 1.0 - juce::square (x / reach)))); };

    // Tap j meets the input sample j - reach + 1 behind the one at or before the output's time.
    std::vector<double> weights (static_cast<std::size_t> (2 * reach));

    for (int j = 0; j < 2 * reach; ++j)
    {
        const auto distance = j - reach + 1 - static_cast<double> (phase) / numPhases;
        weights[static_cast<std::size_t> (j)] = sinc (cutoff * distance) * window (distance);
    }

    const auto sum = std::accumulate (weights.begin(), weights.end(), 0.0);   // a constant stays what it is
    std::transform (weights.begin(), weights.end(), taps, [sum] (double w) { return static_cast<float> (w / sum); });
}

juce::AudioSampleBuffer Resampler::process (const juce::AudioSampleBuffer& source) const
{
    const auto oldLength = static_cast<juce::int64> (source.getNumSamples());
    const auto newLength = static_cast<int> ((oldLength * numPhases + step - 1) / step);
    juce::AudioSampleBuffer result (source.getNumChannels(), newLength);

    for (int channel = 0; channel < source.getNumChannels(); ++channel)
    {
        const auto* const input = source.getReadPointer (channel);
        auto* const output = result.getWritePointer (channel);

        for (int i = 0; i < newLength; ++i)
        {
            const auto place = static_cast<juce::int64> (i) * step;
            output[i] =
                interpolate (input, source.getNumSamples(), place / numPhases, static_cast<int> (place % numPhases));
        }
    }

    return result;
}

float Resampler::interpolate (const float* source, int numSamples, juce::int64 centre, int phase) const noexcept
{
    const auto* const taps = kernels.data() + static_cast<std::size_t> (phase) * static_cast<std::size_t> (2 * reach);
    const auto first = centre - reach + 1;
    const auto from = static_cast<int> (std::max<juce::int64> (0, -first));
    const auto to = static_cast<int> (std::min<juce::int64> (2 * reach, numSamples - first));

    // Sums side by side: rounding stays small, and the compiler can work on them at once.
    constexpr int lanes = 8;
    float sums[lanes] {};
    int j = from;

    for (; j + lanes <= to; j += lanes)
        for (int lane = 0; lane < lanes; ++lane)
            sums[lane] += taps[j + lane] * source[first + j + lane];

    for (; j < to; ++j)
        sums[0] += taps[j] * source[first + j];

    return std::accumulate (std::begin (sums), std::end (sums), 0.0f);
}

}   // namespace desk
