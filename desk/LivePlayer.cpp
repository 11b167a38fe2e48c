// SPDX-License-Identifier: GPL-3.0-or-later
#include "LivePlayer.h"

namespace desk
{
namespace
{

constexpr int kTimerPeriod = 10;          // milliseconds
constexpr double kLongestCatchUp = 0.2;   // seconds that a turn of the timer makes up for
constexpr double kRampLength = 0.01;      // seconds

}   // namespace

LivePlayer::LivePlayer (ComparisonGraph& comparison, LiveDevice& audioDevice) :
    graph (comparison), device (audioDevice), length (graph.getMaterial().getNumSamples()),
    latency (graph.getLatency()), block (graph.getNumChannels(), ComparisonGraph::kBlockSize)
{
    level.reset (graph.getMaterial().getSampleRate(), kRampLength);
    startTimer (kTimerPeriod);
    device.start (*this);
}

LivePlayer::~LivePlayer()
{
    stopTimer();
    device.stop (*this);
}

void LivePlayer::audioDeviceIOCallbackWithContext (const float* const*, int, float* const* outputs, int numOutputs,
                                                   int numSamples, const juce::AudioIODeviceCallbackContext&)
{
    for (int done = 0; done < numSamples;)
    {
        const auto count = playNext (numSamples - done);

        for (int output = 0; output < numOutputs; ++output)
        {
            if (outputs[output] == nullptr)
                continue;

            const auto channel = std::min (output, block.getNumChannels() - 1);
            juce::FloatVectorOperations::copy (outputs[output] + done, block.getReadPointer (channel), count);
        }

        done += count;
    }
}

void LivePlayer::audioDeviceAboutToStart (juce::AudioIODevice* audioDevice)
{
    deviceStarts (audioDevice->getCurrentSampleRate());
}

void LivePlayer::deviceStarts (double hertz) noexcept
{
    offRate = juce::roundToInt (hertz) != graph.getMaterial().getSampleRate();
    deviceRuns = true;
}

void LivePlayer::audioDeviceStopped()
{
    deviceRuns = false;
    offRate = false;
}

void LivePlayer::timerCallback()
{
    if (deviceRuns)
        return;

    const auto now = juce::Time::getMillisecondCounterHiRes();
    const auto elapsed = std::min (kLongestCatchUp, (now - silentSince) / 1000.0);
    silentSince = now;
    auto toPlay = static_cast<int> (elapsed * graph.getMaterial().getSampleRate());

    while (toPlay > 0)
        toPlay -= playNext (toPlay);
}

/** Leaves the next samples in `block`. @returns how many, at most `maxSamples` */
int LivePlayer::playNext (int maxSamples)
{
    followTransport();
    const auto untilLoop = static_cast<int> (std::min<juce::int64> (length - position, ComparisonGraph::kBlockSize));
    const auto count = std::min ({ maxSamples, ComparisonGraph::kBlockSize, wasPlaying ? untilLoop : maxSamples });

    juce::AudioSampleBuffer part (block.getArrayOfWritePointers(), block.getNumChannels(), count);
    graph.process (part, wasPlaying ? std::optional<juce::int64> (position) : std::nullopt);
    level.applyGain (part, count);

    if (wasPlaying)
    {
        position = wrap (position + count);
        numFed += count;
        heardPosition = wrap (position - std::min (latency, numFed));
    }

    return count;
}

void LivePlayer::followTransport()
{
    const bool plays = playing && ! offRate;

    // What was fed but not heard yet is fed again at the next start.
    if (wasPlaying && ! plays)
        position = heardPosition;

    if (plays && ! wasPlaying)
        numFed = 0;

    if (const auto request = requestedPosition.exchange (kNoRequest); request != kNoRequest)
    {
        heardPosition = position = wrap (request);
        numFed = 0;
    }

    wasPlaying = plays;
    level.setTargetValue (plays ? 1.0f : 0.0f);
}

juce::int64 LivePlayer::wrap (juce::int64 anyPosition) const noexcept
{
    return ((anyPosition % length) + length) % length;
}

}   // namespace desk
