// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

/** What a host is answered alike by every product, and the numbers that it is told things by. */
class OxJuceProcessorAnswers : public juce::AudioProcessor
{
public:
    /** What is done to a block; the private commands bear the same numbers. */
    enum ProcessMode : int
    {
        realTime = 100,
        offlineAnalysis = 101,
        offlineRender = 102,
        analysisFinished = 103,
        renderFinished = 104
    };

    /** What the adapters pass as wrapper type. */
    enum PluginType : int
    {
        typeVst = 1,
        typeAu = 2,
        typeRtas = 3,
        typeAax = 4,
        typeAudioSuite = 6,
        typeVst3 = 7
    };

    using juce::AudioProcessor::AudioProcessor;

    // juce::AudioProcessor
    void releaseResources() override {}
    void reset() override {}
    const juce::String getInputChannelName (int index) const override { return juce::String (index + 1); }
    const juce::String getOutputChannelName (int index) const override { return juce::String (index + 1); }
    bool isInputChannelStereoPair (int) const override { return true; }
    bool isOutputChannelStereoPair (int) const override { return true; }
    bool silenceInProducesSilenceOut() const override { return false; }
    double getTailLengthSeconds() const override { return 0.0; }
    bool hasEditor() const override { return true; }
    juce::String getParameterLabel (int) const override { return {}; }
    int getParameterNumSteps (int) override { return 0x7fffffff; }
    bool isParameterAutomatable (int) const override { return true; }
};
