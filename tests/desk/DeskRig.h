// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "OfflineRender.h"
#include "adapters/HostTools.h"

#include <cstdlib>
#include <sstream>

/** A folder of its own for sound files, and a home in which the built plug-ins and their manager are installed. */
struct DeskRig
{
    static constexpr int kRate = 44100, kCrossfade = kRate * 40 / 1000;   // hertz, samples

    DeskRig()
    {
        folder.createDirectory();
        ::setenv ("HOME", DUO_HOME, 1);
    }

    ~DeskRig() { folder.deleteRecursively(); }

    juce::File file (const juce::String& name) const { return folder.getChildFile (name); }

    /** Writes 32-bit floats as WAV, or 24-bit numbers in the other formats. */
    juce::File write (const juce::String& name, const Audio& audio, int rate = kRate) const
    {
        juce::AudioFormatManager formats;
        formats.registerBasicFormats();
        const auto target = file (name);
        auto* const format = formats.findFormatForFileExtension (target.getFileExtension());
        const auto bits = target.hasFileExtension ("wav") ? 32 : 24;
        target.deleteFile();   // a stream would append
        const auto channels = static_cast<unsigned> (audio.getNumChannels());
        const std::unique_ptr<juce::AudioFormatWriter> writer (
            format->createWriterFor (new juce::FileOutputStream (target), rate, channels, bits, {}, 5));
        EXPECT_TRUE (writer != nullptr && writer->writeFromAudioSampleBuffer (audio, 0, audio.getNumSamples())) << name;
        return target;
    }

    /** Ends a file after so many bytes, more than it has or fewer. */
    static void resize (const juce::File& target, juce::int64 numBytes)
    {
        juce::FileOutputStream stream (target);
        EXPECT_TRUE (stream.setPosition (numBytes) && stream.truncate().wasOk());
    }

    /** Replaces bytes of a file, a distance behind the first `mark`. */
    static void patch (const juce::File& target, const char* mark, int distance, std::initializer_list<char> bytes)
    {
        juce::MemoryBlock content;
        target.loadFileAsData (content);
        const auto found = std::search (content.begin(), content.end(), mark, mark + std::strlen (mark));
        std::copy (bytes.begin(), bytes.end(), found + distance);
        target.replaceWithData (content.getData(), content.getSize());
    }

    static std::unique_ptr<desk::ComparisonGraph> makeGraph (const desk::Material& material)
    {
        std::unique_ptr<desk::ComparisonGraph> graph;
        const auto made = desk::ComparisonGraph::create (material, desk::ComparisonGraph::getUserPluginFolder(), graph);
        EXPECT_EQ (made.getErrorMessage(), "");
        return graph;
    }

    /** Renders two files by a script, and fails the test if it cannot. @returns the rendered file as it is read back */
    Audio render (const Audio& a, const Audio& b, const juce::String& scriptText, const juce::String& format = ".wav")
    {
        desk::Script script;
        EXPECT_EQ (desk::Script::parse (scriptText, script).getErrorMessage(), "");
        desk::Material material;
        const auto loaded = desk::Material::load (write ("a" + format, a), write ("b" + format, b), {}, material);
        EXPECT_EQ (loaded.getErrorMessage(), "");

        const auto graph = makeGraph (material);
        std::ostringstream output;
        desk::ProgressLine progress (output, false);
        EXPECT_EQ (desk::OfflineRender (*graph, script, progress).writeTo (file ("rendered.wav")).getErrorMessage(),
                   "");
        printed = output.str();

        desk::Recording rendered;
        EXPECT_EQ (desk::Recording::load (file ("rendered.wav"), rendered).getErrorMessage(), "");
        return rendered.audio;
    }

    /** @returns the first sample in [from, to) where `audio` is not `source` bit for bit, or `to`. A mono source stands
        for both channels. */
    static int findFault (const Audio& audio, const Audio& source, int from, int to)
    {
        for (int i = from; i < to; ++i)
            for (int channel = 0; channel < audio.getNumChannels(); ++channel)
                if (audio.getSample (channel, i) != source.getSample (channel % source.getNumChannels(), i))
                    return i;

        return to;
    }

    juce::String printed;   // by the last render
    const juce::File folder = juce::File::createTempFile ("desk");
};
