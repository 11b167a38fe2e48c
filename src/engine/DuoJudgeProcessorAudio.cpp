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

    constexpr int delayCapacity = 65536;   // samples: the room beyond the delay is what one run may hold
    delays.resize (static_cast<std::size_t> (getMaxNumChannels()));

    for (auto& line : delays)
    {
        if (line == nullptr)
            line = std::make_unique<CDelayFilter<float>> (delayCapacity);

        line->setDelay (baylink::kMatchedLatency);
    }

    // Not a number counts as unknown, and no rate is beyond what a fade can be counted in.
    constexpr auto highestRate = 1536000.0;
    const auto hertz = newSampleRate > 0.0 ? static_cast<int> (std::min (newSampleRate, highestRate)) : 0;
    fader.setSampleRate (hertz);
    voteFade.setSampleRate (hertz);

    for (auto& meter : meters)
        meter.levelPeriodMs = hertz > 0 ? 1000.0f * std::max (meter.kWindowLength, newBlockSize) / hertz : 0.0f;

    // Room for a block of any pod, so that the audio thread only moves the buffer's bounds; some hosts send longer blocks
    // than they announce.
    constexpr int longestSurprise = 8192;   // samples
    podBuffer->setSize (baylink::kMaxPodChannels, std::max (longestSurprise, newBlockSize), false, false, true);
    pod = {};   // until the first block
}

void DuoJudgeProcessor::processAudio (juce::AudioSampleBuffer& block, juce::MidiBuffer&)
{
    const auto numSamples = block.getNumSamples();

    if (numSamples == 0 || podBuffer == nullptr)
        return;

    for (int channel = 0; channel < std::min (block.getNumChannels(), static_cast<int> (delays.size())); ++channel)
        delays[static_cast<std::size_t> (channel)]->process (block.getWritePointer (channel), numSamples);

    const auto numCompared = std::min (block.getNumChannels(), channelRule::kMaxCompared);

    for (int channel = 0; channel < numCompared; ++channel)
        getMeter (2 * channel).process (block);

    const auto podIsRead = readPod (numSamples, numCompared);

    // With nothing to fade to, nothing happens to the sound.
    const auto side = parameter (ToggleAB).value == 0.0f ? Crossfade::Side::a : Crossfade::Side::b;

    if (podIsRead && fader.mix (block, pod, side) && side == Crossfade::Side::a)
        clearPod (pod.getNumChannels());

    if (ballot.isFading())
        applyVoteFade (block);

    for (int channel = 0; channel < numCompared; ++channel)
        getMeter (2 * channel + 1).process (pod);
}

void DuoJudgeProcessor::bypassAudio (const juce::AudioSampleBuffer& block)
{
    const auto numSamples = block.getNumSamples();

    if (numSamples == 0 || podBuffer == nullptr)
        return;

    // All goes on unheard, so that what leaves afterwards is what it would have been, from A on, which leaves meanwhile.
    for (int channel = 0; channel < std::min (block.getNumChannels(), static_cast<int> (delays.size())); ++channel)
        delays[static_cast<std::size_t> (channel)]->push (block.getReadPointer (channel), numSamples);

    readPod (numSamples, 1);
    fader.settleOnA();

    if (ballot.isFading())
        applyVoteFade (pod);
}

/** Fills `pod` with the pod's block, or else with silence in `numChannelsOfSilence`.
    @returns whether there is a pod to be heard */
bool DuoJudgeProcessor::readPod (int numSamples, int numChannelsOfSilence)
{
    if (podBuffer->getNumSamples() != numSamples)
        podBuffer->setSize (baylink::kMaxPodChannels, numSamples, false, false, true);

    const auto lastPodId = std::exchange (heardPodId, baylink::kNoPod);

    if (manager == nullptr || selectedPodId == baylink::kNoPod)
        return clearPod (numChannelsOfSilence), false;

    const juce::ScopedLock lock (podLock);
    const baylink::PodId podId = selectedPodId;
    const auto info = manager->getPodInfo (podId);

    if (info.valid == 0 || info.numChannels < 1 || info.numChannels > baylink::kMaxPodChannels)
        return clearPod (numChannelsOfSilence), false;

    if (heardPodId = podId; podId != lastPodId)
        fader.settleOnA();   // what was heard before is not this pod

    clearPod (info.numChannels);

    if (managerHearsOfPlaying)
        manager->setPlaying (id, hostPlays);

    // All channels' arrays are there, also those that the pod may get meanwhile.
    if (readsAtTimeline())
        manager->readAudioAt (id, podBuffer->getArrayOfWritePointers(), numSamples, podId, blockStartSample);
    else
        manager->readAudio (id, podBuffer->getArrayOfWritePointers(), numSamples, podId);

    if (const float gain = podGain; gain != 1.0f)
        for (int channel = 0; channel < info.numChannels; ++channel)
            juce::FloatVectorOperations::multiply (podBuffer->getWritePointer (channel), gain, numSamples);

    return true;
}

/** Lets `pod` be the first channels of `podBuffer`, in silence. */
void DuoJudgeProcessor::clearPod (int numChannels)
{
    const auto numSamples = podBuffer->getNumSamples();
    auto* const* const channels = podBuffer->getArrayOfWritePointers();

    if (pod.getNumChannels() != numChannels || pod.getNumSamples() != numSamples)
        pod.setDataToReferTo (channels, numChannels, numSamples);

    for (int channel = 0; channel < numChannels; ++channel)
        std::fill_n (channels[channel], numSamples, 0.0f);
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

void DuoJudgeProcessor::applyVoteFade (juce::AudioSampleBuffer& block)
{
    using Phase = Ballot::Phase;
    auto phase = ballot.getPhase();

    if (phase == Phase::cast && ballot.advance (Phase::cast, Phase::falling))
        phase = Phase::falling;

    if (phase == Phase::falling)
    {
        if (! voteFade.fall (block) || ! ballot.advance (Phase::falling, Phase::rising))
            return;

        drawSource();

        // If the pod went during the draw, nobody ends what was over: the selection is put back here.
        if (heardPodId != baylink::kNoPod && selectedPodId == baylink::kNoPod)
            setParamInSound (ToggleAB, 0.0f);
    }
    else if (phase == Phase::rising && voteFade.rise (block))
    {
        ballot.advance (Phase::rising, Phase::idle);
    }
}
