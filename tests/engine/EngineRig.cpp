// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/EngineRig.h"

EngineRig::EngineRig (double rate, int block, int channelsOfTrack) :
    managerFolder (juce::File (DUO_MANAGER_FOLDER)), track (noise (1)), podSignal (noise (2)), sampleRate (rate),
    blockSize (block), trackChannels (channelsOfTrack)
{
    listener = createPluginFilter (OxJuceProcessorBase::typeVst3);
    listener->setCoin ([] { return 1; });
    listener->setPlayConfigDetails (trackChannels, trackChannels, sampleRate, blockSize);
    listener->setPlayHead (this);
    listener->prepareToPlay (sampleRate, blockSize);
}

EngineRig::~EngineRig()
{
    listener->setPlayHead (nullptr);
}

EngineRig& EngineRig::addPod (int channelsOfPod)
{
    podChannels = channelsOfPod;
    pod = std::make_unique<PodSender> ("Reference");
    pod->prepare (podChannels, blockSize);
    listener->timerCallback();
    return *this;
}

EngineRig& EngineRig::play (Signal onTrack, Signal inPod)
{
    track = std::move (onTrack);
    podSignal = std::move (inPod);
    return *this;
}

EngineRig& EngineRig::set (int paramId, float value)
{
    listener->setParamUndoable (paramId, value, true);
    return *this;
}

EngineRig& EngineRig::click (int paramId)
{
    return set (paramId, 1.0f).set (paramId, 0.0f);
}

juce::AudioSampleBuffer EngineRig::cycle (int length)
{
    const auto fill = [this, length] (const Signal& signal, int numChannels)
    {
        juce::AudioSampleBuffer block (numChannels, length);

        for (int channel = 0; channel < numChannels; ++channel)
            for (int i = 0; i < length; ++i)
                block.setSample (channel, i, signal (channel, now + i));

        return block;
    };

    if (pod != nullptr)
    {
        auto block = fill (podSignal, podChannels);
        pod->process (block, now);
    }

    auto block = fill (track, trackChannels);
    listener->processBlock (block, midi);
    now += length;
    return block;
}

juce::AudioSampleBuffer EngineRig::run (int samples)
{
    juce::AudioSampleBuffer all (trackChannels, 0);

    while (all.getNumSamples() < samples)
    {
        const auto start = all.getNumSamples();
        const auto block = cycle (blockSize);
        all.setSize (trackChannels, start + blockSize, true);

        for (int channel = 0; channel < trackChannels; ++channel)
            all.copyFrom (channel, start, block, channel, 0, blockSize);
    }

    return all;
}

int EngineRig::samplesUntil (const Signal& target)
{
    const auto start = now;
    const auto heard = run (static_cast<int> (sampleRate / 2));
    auto steady = heard.getNumSamples();

    while (steady > 0 && heard.getSample (0, steady - 1) == late (target, 0, start + steady - 1))
        --steady;

    return steady;
}

float EngineRig::late (const Signal& signal, int channel, std::int64_t sample)
{
    return sample < baylink::kMatchedLatency ? 0.0f : signal (channel, sample - baylink::kMatchedLatency);
}

juce::Optional<juce::AudioPlayHead::PositionInfo> EngineRig::getPosition() const
{
    PositionInfo info;
    info.setIsPlaying (true);
    info.setTimeInSamples (now);
    return info;
}

EngineRig::Signal noise (std::uint32_t seed)
{
    return [seed] (int channel, std::int64_t sample)
    {
        auto bits =
            (static_cast<std::uint64_t> (sample) * 4 + static_cast<std::uint64_t> (channel)) * 0x9e3779b97f4a7c15u +
            seed * 0xd1342543de82ef95u;
        bits = (bits ^ (bits >> 32)) * 0xbf58476d1ce4e5b9u;
        return static_cast<float> (static_cast<std::int32_t> (bits >> 32)) / 2147483648.0f;
    };
}

EngineRig::Signal sweep()
{
    return [] (int channel, std::int64_t sample)
    {
        const auto seconds = static_cast<double> (sample) / 44100.0;
        return static_cast<float> (0.7 *
                                   std::sin (6.283185307179586 * (20.0 + 900.0 * seconds) * seconds + channel * 1.57));
    };
}
