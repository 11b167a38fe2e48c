// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxJuceObserverLevelMeter.h"

namespace
{

constexpr float kHighestLevel = 1000.0f;    // 60 dB, above every scale and soon back on it
constexpr double kShortestPatience = 500;   // milliseconds without a level

float peakOf (const float* samples, int numSamples, float peak)
{
    for (int i = 0; i < numSamples; ++i)
        peak = std::max (peak, std::abs (samples[i]));

    return peak;
}

float peakOfHalf (const float* left, const float* right, float sign, int numSamples, float peak)
{
    for (int i = 0; i < numSamples; ++i)
        peak = std::max (peak, 0.5f * std::abs (left[i] + sign * right[i]));

    return peak;
}

}   // namespace

float linearToDecibels (float linear)
{
    static const double divisor = std::log (10.0) / 20.0;
    return static_cast<float> (linear < 1e-10f ? -1e10 : std::log (static_cast<double> (linear)) / divisor);
}

void OxJuceObserverLevelMeter::reset()
{
    heldLevelDb = noLevelMark;
    blockLevel = silentLevel;
    lastLevel = silentLevel;
    lastLevelAge = 0.0;
}

void OxJuceObserverLevelMeter::process (const juce::AudioSampleBuffer& block)
{
    const auto numChannels = block.getNumChannels(), numSamples = block.getNumSamples();
    const int signal = channel;

    if (signal == mid || signal == side)
    {
        if (numChannels >= 2)
            blockLevel = peakOfHalf (block.getReadPointer (0), block.getReadPointer (1), signal == mid ? 1.0f : -1.0f,
                                     numSamples, blockLevel);
    }
    else if (signal == all)
    {
        for (int i = 0; i < numChannels; ++i)
            blockLevel = peakOf (block.getReadPointer (i), numSamples, blockLevel);
    }
    else if (signal >= 0 && signal < numChannels)
    {
        blockLevel = peakOf (block.getReadPointer (signal), numSamples, blockLevel);
    }
}

float OxJuceObserverLevelMeter::getLevelDb()
{
    return getLevelDbAt (AnimationClock::read());
}

void OxJuceObserverLevelMeter::takeBlockLevel (double elapsedMs)
{
    const float collected = blockLevel;
    blockLevel = noLevelMark;
    lastLevelAge += elapsedMs;

    // What was collected while nobody looked may be as old as that.
    if (collected >= silentLevel && elapsedMs < AnimationClock::kLongestStep)
    {
        lastLevel = std::min (collected, kHighestLevel);
        lastLevelAge = 0.0;
    }
    else if (lastLevelAge >= std::max<double> (kShortestPatience, 2.0f * levelPeriodMs))
    {
        lastLevel = silentLevel;
    }
}

float OxJuceObserverLevelMeter::getLevelDbAt (double moment)
{
    const auto elapsedMs = clock.stepTo (moment);
    takeBlockLevel (elapsedMs);
    const auto levelDb = linearToDecibels (lastLevel);

    if (fallRateDbPerSecond == kNoBallistics)
    {
        heldLevelDb = levelDb;
    }
    else
    {
        const auto fallen = heldLevelDb - static_cast<float> (elapsedMs) * direction * fallRateDbPerSecond / 1000.0f;
        heldLevelDb = direction * fallen > direction * levelDb ? fallen : levelDb;
    }

    return readingOffsetDb + heldLevelDb;
}

float OxJuceObserverLevelMeter::getInstantLevelDb()
{
    return readingOffsetDb + linearToDecibels (lastLevel);
}
