// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of a block.
#include "engine/ChannelRule.h"
#include "engine/DuoJudgeProcessor.h"

using namespace duoJudge;

void DuoJudgeProcessor::prepareAudio (double newSampleRate, int newBlockSize)
{
    if (manager != nullptr)
    {
        manager->setChannels (id, getTotalNumOutputChannels());
        manager->setBlockSize (id, newBlockSize);
    }

    if (getLatencySamples() != baylink::kMatchedLatency)
        setLatencySamples (baylink::kMatchedLatency);   // tells the host

    for (auto& line : delays)
        line.setDelay (baylink::kMatchedLatency);

    // Not a number counts as unknown, and no rate is beyond what a fade can be counted in.
    constexpr auto highestRate = 1536000.0;
    const auto hertz = newSampleRate > 0.0 ? static_cast<int> (std::min (newSampleRate, highestRate)) : 0;
    fader.setSampleRate (hertz);
    voteFade.setSampleRate (hertz);

    for (auto& meter : meters)
        meter.levelPeriodMs = hertz > 0 ? 1000.0f * std::max (meter.kWindowLength, newBlockSize) / hertz : 0.0f;

    // Room for a block of any pod, so that the audio thread only moves the buffer's bounds.
    podBuffer->setSize (baylink::kMaxPodChannels, std::max (1, newBlockSize), false, false, true);
}

void DuoJudgeProcessor::processAudio (juce::AudioSampleBuffer& block, juce::MidiBuffer&)
{
    const auto numChannels = std::min (block.getNumChannels(), static_cast<int> (delays.size()));
    const auto numSamples = block.getNumSamples();

    if (numSamples == 0 || podBuffer == nullptr)
        return;

    podBuffer->setSize (numChannels, numSamples, false, false, true);
    podBuffer->clear();

    for (int channel = 0; channel < numChannels; ++channel)
        delays[static_cast<std::size_t> (channel)].process (block.getWritePointer (channel), numSamples);

    for (int channel = 0; channel < numChannels; ++channel)
        getMeter (2 * channel).process (block);

    const auto podRead = readPod (numSamples);
    selectSource (block, podRead);

    if (voteFadeActive)
        applyVoteFade (block);

    for (int channel = 0; channel < numChannels; ++channel)
        getMeter (2 * channel + 1).process (*podBuffer);
}

bool DuoJudgeProcessor::readPod (int numSamples)
{
    if (manager == nullptr || selectedPodId == baylink::kNoPod)
        return false;

    const juce::ScopedLock lock (podLock);
    const baylink::PodId podId = selectedPodId;
    const auto info = manager->getPodInfo (podId);

    if (info.valid == 0 || info.numChannels < 1 || info.numChannels > baylink::kMaxPodChannels)
        return false;

    podBuffer->setSize (info.numChannels, numSamples, false, false, true);
    podBuffer->clear();

    if (managerHearsOfPlaying)
        manager->setPlaying (id, hostPlays);

    if (readsAtTimeline())
        manager->readAudioAt (id, podBuffer->getArrayOfWritePointers(), numSamples, podId, blockStartSample);
    else
        manager->readAudio (id, podBuffer->getArrayOfWritePointers(), numSamples, podId);

    podBuffer->applyGain (podGain);
    return true;
}

bool DuoJudgeProcessor::readsAtTimeline()
{
    enum Override
    {
        detect,
        off,
        on
    };

    switch (getParamCode (UseTimestampedPodAudioOverride))
    {
        case detect:
            return detectTimestamps;
        case off:
            return false;
        default:
            return true;
    }
}

void DuoJudgeProcessor::selectSource (juce::AudioSampleBuffer& block, bool podRead)
{
    // A change may be written but not announced yet, or announced while the last one was being finished.
    const auto wantsB = parameter (ToggleAB).value != 0.0f;

    if (std::exchange (wantedB, wantsB) != wantsB)
        crossfadePending = true;

    if (wantsB && podRead)
    {
        if (! crossfadePending)
            channelRule::copy (block, *podBuffer);
        else if (fader.step (block, *podBuffer))
            crossfadePending = false;
    }
    else if (crossfadePending)
    {
        if (fader.step (*podBuffer, block))
            crossfadePending = false;

        channelRule::copy (block, *podBuffer);
        podBuffer->clear();
    }
}

void DuoJudgeProcessor::applyVoteFade (juce::AudioSampleBuffer& block)
{
    switch (voteFade.apply (block))
    {
        case VoteFade::Event::silent:
            drawSource();
            break;
        case VoteFade::Event::finished:
            voteFadeActive = false;
            break;
        case VoteFade::Event::none:
            break;
    }
}
