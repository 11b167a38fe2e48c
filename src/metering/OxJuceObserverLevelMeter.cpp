// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxJuceObserverLevelMeter.h"

namespace
{

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

OxJuceObserverLevelMeter::OxJuceObserverLevelMeter() : lastReadTime (juce::Time::getCurrentTime().toMilliseconds())
{
}

void OxJuceObserverLevelMeter::reset()
{
    heldLevelDb = noLevelMark;
    blockLevel = silentLevel;
    lastLevel = silentLevel;
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
    return getLevelDbAt (juce::Time::getCurrentTime());
}

float OxJuceObserverLevelMeter::getLevelDbAt (juce::Time now)
{
    const float collected = blockLevel;

    if (collected != noLevelMark)
        lastLevel = collected;

    const auto levelDb = linearToDecibels (lastLevel);

    if (fallRateDbPerSecond == kNoBallistics)
    {
        heldLevelDb = levelDb;
    }
    else
    {
        const auto elapsedMs = static_cast<float> (now.toMilliseconds() - lastReadTime);
        const auto fallen = heldLevelDb - elapsedMs * direction * fallRateDbPerSecond / 1000.0f;
        heldLevelDb = direction * fallen > direction * levelDb ? fallen : levelDb;
    }

    lastReadTime = now.toMilliseconds();
    blockLevel = noLevelMark;
    return readingOffsetDb + heldLevelDb;
}

float OxJuceObserverLevelMeter::getInstantLevelDb()
{
    return readingOffsetDb + linearToDecibels (lastLevel);
}
