// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "OfflineRender.h"

#include "platform/KnownFolders.h"

#include <sstream>

/** A folder of its own for sound files, and the built manager in place of an installed one. */
class DeskRig
{
public:
    static constexpr int kRate = 44100;
    static constexpr int kCrossfade = kRate * 40 / 1000;   // samples

    DeskRig();
    ~DeskRig() { folder.deleteRecursively(); }

    /** White noise within half of full scale, the same for the same seed. */
    static juce::AudioSampleBuffer noise (int numChannels, int numSamples, int seed);

    /** Writes 32-bit floats, or 16-bit numbers in the other formats. */
    juce::File write (const juce::String& name, const juce::AudioSampleBuffer& audio, int rate = kRate) const;

    juce::File file (const juce::String& name) const { return folder.getChildFile (name); }

    /** Renders two files by a script, and fails the test if it cannot. @returns the rendered file as it is read back */
    juce::AudioSampleBuffer render (const juce::File& a, const juce::File& b, const juce::String& scriptText);

    /** "A" where `audio` equals `a` bit for bit in [from, to), "B" for `b`, else the place of the first sample that equals
        neither. A mono source stands for both channels. */
    static juce::String identify (const juce::AudioSampleBuffer& audio, const juce::AudioSampleBuffer& a,
                                  const juce::AudioSampleBuffer& b, int from, int to);

    juce::String printed;   // by the last render

private:
    juce::File folder;
    platform::ScopedCommonProgramFilesFolder manager;
};
