// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include <juce_audio_formats/juce_audio_formats.h>

namespace desk
{

/** A sound file in memory, with one or two channels. */
struct Recording
{
    static constexpr int kMaxChannels = 2;

    /** Reads the first two channels of any file that the toolkit knows, at 1 to 1536000 Hz, as far as the file goes.
        @returns in one line why it cannot, or success */
    static juce::Result load (const juce::File& file, Recording& result);

    /** Brings the audio to `newRate` hertz; at that rate already it stays as it is. */
    void resample (int newRate);

    /** "name.flac, 44.1 kHz, stereo", as it lies on disk. */
    juce::String describe() const;

    /** "name.flac lacks its last 4410 samples (0.100 s)", for a file that breaks off; empty for any other. */
    juce::String describeLoss() const;

    double getLengthInSeconds() const { return static_cast<double> (audio.getNumSamples()) / sampleRate; }

    juce::String name;
    juce::AudioSampleBuffer audio;
    int sampleRate = 0;                         // hertz, of `audio`
    int fileSampleRate = 0, fileChannels = 0;   // as they were
    juce::int64 numMissing = 0;                 // samples that the file promises and does not hold
    bool breaksOff = false;                     // the file has no end, and does not tell how many are missing
};

/** The two recordings of a comparison, fit to play in step. */
struct Material
{
    /** Loads both. They come at `sampleRate`, or at A's rate when none is given. Of a mono and a stereo file the mono one
        is laid on both sides. @returns in one line why it cannot, or success */
    static juce::Result load (const juce::File& fileA, const juce::File& fileB, std::optional<int> sampleRate,
                              Material& result);

    /** What a listener should know of how the files were fitted, a line for each thing. */
    juce::StringArray getRemarks() const;

    /** A line for each file that breaks off. */
    juce::StringArray getLosses() const;

    /** Of the comparison, which is A's. */
    int getNumSamples() const { return a.audio.getNumSamples(); }
    int getSampleRate() const { return a.sampleRate; }

    Recording a, b;
};

}   // namespace desk
