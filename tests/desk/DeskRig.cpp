// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskRig.h"

#include <gtest/gtest.h>

DeskRig::DeskRig() :
    folder (juce::File::createTempFile ("desk")), manager (juce::File (juce::CharPointer_UTF8 (DUO_MANAGER_FOLDER)))
{
    folder.createDirectory();
}

juce::AudioSampleBuffer DeskRig::noise (int numChannels, int numSamples, int seed)
{
    juce::Random random (seed);
    juce::AudioSampleBuffer audio (numChannels, numSamples);

    for (int channel = 0; channel < numChannels; ++channel)
        for (int i = 0; i < numSamples; ++i)
            audio.setSample (channel, i, random.nextFloat() - 0.5f);

    return audio;
}

juce::File DeskRig::write (const juce::String& name, const juce::AudioSampleBuffer& audio, int rate) const
{
    juce::AudioFormatManager formats;
    formats.registerBasicFormats();
    const auto target = file (name);
    auto* const format = formats.findFormatForFileExtension (target.getFileExtension());
    const auto bits = target.hasFileExtension ("wav") ? 32 : 16;
    target.deleteFile();   // a stream would append
    auto stream = std::make_unique<juce::FileOutputStream> (target);
    const std::unique_ptr<juce::AudioFormatWriter> writer (
        format->createWriterFor (stream.release(), rate, static_cast<unsigned> (audio.getNumChannels()), bits, {}, 5));
    EXPECT_TRUE (writer != nullptr && writer->writeFromAudioSampleBuffer (audio, 0, audio.getNumSamples())) << name;
    return target;
}

juce::AudioSampleBuffer DeskRig::render (const juce::File& a, const juce::File& b, const juce::String& scriptText)
{
    desk::Script script;
    EXPECT_EQ (desk::Script::parse (scriptText, script).getErrorMessage(), juce::String());
    desk::Material material;
    EXPECT_EQ (desk::Material::load (a, b, {}, material).getErrorMessage(), juce::String());

    desk::ComparisonGraph graph (material);
    EXPECT_TRUE (graph.isLinked());
    std::ostringstream output;
    desk::ProgressLine progress (output, false);
    const auto target = file ("rendered.wav");
    EXPECT_EQ (desk::OfflineRender (graph, script, progress).writeTo (target).getErrorMessage(), juce::String());
    printed = output.str();

    desk::Recording rendered;
    EXPECT_EQ (desk::Recording::load (target, rendered).getErrorMessage(), juce::String());
    return rendered.audio;
}

juce::String DeskRig::identify (const juce::AudioSampleBuffer& audio, const juce::AudioSampleBuffer& a,
                                const juce::AudioSampleBuffer& b, int from, int to)
{
    const auto findFault = [&] (const juce::AudioSampleBuffer& source)
    {
        for (int i = from; i < to; ++i)
            for (int channel = 0; channel < audio.getNumChannels(); ++channel)
                if (audio.getSample (channel, i) != source.getSample (channel % source.getNumChannels(), i))
                    return i;

        return to;
    };
    const auto offA = findFault (a), offB = findFault (b);
    return offA == to ? "A" : offB == to ? "B" : juce::String (std::max (offA, offB));
}
