// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PodSender.h"
#include "engine/CreatePluginFilter.h"
#include "engine/DuoJudgeProcessor.h"
#include "platform/KnownFolders.h"

#include <functional>

#include <juce_audio_formats/juce_audio_formats.h>

#include <gtest/gtest.h>

/** Tells the sample of a channel at a time. */
using Signal = std::function<float (int channel, std::int64_t sample)>;

/** Repeatable noise between -1 and 1, other for every seed and channel. */
inline Signal noise (juce::int64 seed)
{
    return [seed] (int channel, std::int64_t sample)
    { return 2.0f * juce::Random (sample * 4 + channel + (seed << 40)).nextFloat() - 1.0f; };
}

inline Signal level (float value)
{
    return [value] (int, std::int64_t) { return value; };
}

/** A tone that rises through all that can be heard, over and over. */
inline Signal sweep()
{
    return [] (int, std::int64_t sample)
    { return static_cast<float> (std::sin (20.0 * std::exp (static_cast<double> (sample % 48000) / 7000.0))); };
}

/** A drummer, over and over; stands in the package of the demo. */
inline Signal recording()
{
    juce::AudioFormatManager formats;
    formats.registerBasicFormats();
    const std::unique_ptr<juce::AudioFormatReader> reader (
        formats.createReaderFor (juce::File ("/usr/share/sonic-pi/samples/loop_tabla.flac")));
    auto samples = std::make_shared<juce::AudioSampleBuffer> (2, 100000);
    EXPECT_TRUE (reader != nullptr && reader->read (samples.get(), 0, samples->getNumSamples(), 0, true, true));
    return [samples] (int channel, std::int64_t sample)
    { return samples->getSample (channel, static_cast<int> (sample % samples->getNumSamples())); };
}

/** One listener and, when asked for, one sender in a host that plays: the real processor and the real manager. */
struct EngineRig : private juce::AudioPlayHead
{
    explicit EngineRig (double rate = 44100.0, int block = 64, int channelsOfTrack = 2) :
        blockSize (block), trackChannels (channelsOfTrack)
    {
        processor->setCoin ([] { return 1; });
        processor->setPlayHead (this);
        prepare (rate, block);
    }

    /** The host goes on at another rate or block size. */
    void prepare (double rate, int block)
    {
        blockSize = block;
        processor->setPlayConfigDetails (trackChannels, trackChannels, rate, block);
        processor->prepareToPlay (rate, block);
    }

    /** Puts a sender before the listener in every cycle and links the listener to it. */
    EngineRig& addPod (int channelsOfPod = 2)
    {
        podChannels = channelsOfPod;
        pod = std::make_unique<PodSender> ("Reference");
        pod->prepare (podChannels, blockSize);
        processor->timerCallback();
        return *this;
    }
    EngineRig& play (Signal onTrack, Signal inPod)
    {
        track = std::move (onTrack), podSignal = std::move (inPod);
        return *this;
    }
    EngineRig& set (int paramId, float value)
    {
        processor->setParamUndoable (paramId, value, true);
        return *this;
    }

    /** Presses and releases a button. */
    EngineRig& click (int paramId) { return set (paramId, 1.0f).set (paramId, 0.0f); }

    /** Plays samples in blocks, the last one shorter if need be. @returns what left */
    juce::AudioSampleBuffer run (int numSamples)
    {
        juce::AudioSampleBuffer heard (trackChannels, numSamples), sent (podChannels, numSamples);

        for (int channel = 0; channel < std::max (trackChannels, podChannels); ++channel)
            for (int i = 0; i < numSamples; ++i)
            {
                if (channel < trackChannels)
                    heard.setSample (channel, i, track (channel, position + i));

                if (channel < podChannels)
                    sent.setSample (channel, i, podSignal (channel, position + i));
            }

        for (int start = 0; start < numSamples; start += blockSize)
        {
            const auto length = std::min (blockSize, numSamples - start);
            juce::AudioSampleBuffer block (heard.getArrayOfWritePointers(), trackChannels, start, length);

            if (juce::AudioSampleBuffer podBlock (sent.getArrayOfWritePointers(), podChannels, start, length); pod)
                pod->process (podBlock, position);

            process (block);
            position += length;
        }

        return heard;
    }

    void process (juce::AudioSampleBuffer& block)
    {
        bypassed ? processor->processBlockBypassed (block, midi) : processor->processBlock (block, midi);
    }

    /** What leaves next is to be this signal alone, 4096 samples late, bit for bit. */
    void expect (int numSamples, const Signal& signal)
    {
        const auto start = position;
        const auto heard = run (numSamples);

        for (int channel = 0; channel < trackChannels; ++channel)
            for (int i = 0; i < numSamples; ++i)
                ASSERT_EQ (heard.getSample (channel, i), late (signal, channel, start + i)) << channel << ", " << i;
    }

    static float late (const Signal& signal, int channel, std::int64_t sample)
    {
        return sample < baylink::kMatchedLatency ? 0.0f : signal (channel, sample - baylink::kMatchedLatency);
    }

    juce::Optional<PositionInfo> getPosition() const override
    {
        PositionInfo info;
        info.setIsPlaying (true);
        info.setTimeInSamples (position);
        info.setFrameRate (FrameRate (frameRate));
        return info;
    }

    const platform::ScopedCommonProgramFilesFolder managerFolder { juce::File (DUO_MANAGER_FOLDER) };
    const std::unique_ptr<DuoJudgeProcessor> processor = createPluginFilter (OxJuceProcessorBase::typeVst3);
    std::unique_ptr<PodSender> pod;
    Signal track = noise (1), podSignal = noise (2);
    int blockSize, podChannels = 0;
    const int trackChannels;
    bool bypassed = false;
    std::int64_t position = 0;
    FrameRateType frameRate = fpsUnknown;
    juce::MidiBuffer midi;
};
