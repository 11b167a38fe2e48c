// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <gtest/gtest.h>

using Audio = juce::AudioSampleBuffer;

/** White noise within half of full scale, the same for the same seed, of numbers that 24 bits hold. */
inline Audio noise (int numChannels, int numSamples, int seed = 1)
{
    juce::Random random (seed);
    Audio audio (numChannels, numSamples);

    for (int i = 0; i < numChannels * numSamples; ++i)
        audio.setSample (i % numChannels, i / numChannels, float (random.nextInt (1 << 23) - (1 << 22)) / (1 << 23));

    return audio;
}

/** A stretch of some audio, in place and no longer than what is there. */
inline Audio stretch (Audio& audio, int start, int length)
{
    return { audio.getArrayOfWritePointers(), audio.getNumChannels(), start,
             std::min (length, audio.getNumSamples() - start) };
}

/** @returns whether `heard` is, in this channel and from `from` on, the source 4096 samples late, silent before that. */
inline bool isLate (const Audio& heard, const Audio& source, int channel, int from)
{
    for (int i = from; i < heard.getNumSamples(); ++i)
        if (heard.getSample (channel, i) != (i < 4096 ? 0.0f : source.getSample (channel, i - 4096)))
            return false;

    return true;
}

/** Loads a built plug-in as the toolkit's hosts do. */
inline std::unique_ptr<juce::AudioPluginInstance> loadInToolkit (const char* bundle)
{
    juce::VST3PluginFormat format;
    juce::OwnedArray<juce::PluginDescription> found;
    juce::String error;
    format.findAllTypesForFile (found, bundle);
    auto plugin = format.createInstanceFromDescription (*found[0], 44100.0, 4096, error);
    EXPECT_TRUE (plugin != nullptr && found.size() == 1) << error;
    return plugin;
}
