// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/aax/AAX_AudiosuiteProcessor.h"

namespace AAXClasses
{
namespace
{

using Mode = JuceAAX_Processor::Mode;

/** Processes into outputs that nobody hears. */
void processUnheard (JuceAAX_Processor& effect, const float* const* inputs, int numChannels, int numSamples, Mode mode)
{
    juce::AudioSampleBuffer unheard (numChannels, std::max (0, numSamples));
    effect.process (inputs, unheard.getArrayOfWritePointers(), numChannels, numSamples, mode);
}

}   // namespace

template <typename Action>
AAX_Result AAX_AudiosuiteProcessor::withEffect (Action&& action)
{
    auto* const effect = dynamic_cast<JuceAAX_Processor*> (GetEffectParameters());

    if (effect != nullptr)
        return action (*effect), AAX_SUCCESS;

    juce::Logger::writeToLog ("Warning: Could not instantiate AudioSuite processor.");
    return AAX_ERROR_NULL_OBJECT;
}

AAX_Result AAX_AudiosuiteProcessor::Initialize (AAX_IController* controller)
{
    const auto result = AAX_CHostProcessor::Initialize (controller);

    if (auto* const effect = dynamic_cast<JuceAAX_Processor*> (GetEffectParameters()))
        effect->setAudioSuite (true);

    return result;
}

AAX_Result AAX_AudiosuiteProcessor::RenderAudio (Inputs inputs, std::int32_t numInputs, Outputs outputs,
                                                 std::int32_t numOutputs, std::int32_t* windowSize)
{
    return withEffect (
        [&] (JuceAAX_Processor& effect)
        {
            const auto latency = effect.judge().getLatencySamples();
            const auto offered = *windowSize, kept = offered - latency;
            const auto numChannels = std::max (0, std::min (numInputs, numOutputs));
            *windowSize = kept;

            if (! std::exchange (firstRender, false) && latency > 0)
            {
                std::vector<const float*> ahead (inputs, inputs + numChannels);
                std::for_each (ahead.begin(), ahead.end(),
                               [latency] (auto& channel) { channel += channel != nullptr ? latency : 0; });
                effect.process (ahead.data(), outputs, numChannels, kept, Mode::render);
            }
            else if (kept < 1)
                processUnheard (effect, inputs, numChannels, offered, Mode::render);
            else if (effect.process (inputs, outputs, numChannels, offered, Mode::render) && latency > 0)
                for (int channel = 0; channel < numChannels; ++channel)
                    std::copy (outputs[channel] + latency, outputs[channel] + offered, outputs[channel]);
        });
}

AAX_Result AAX_AudiosuiteProcessor::PreRender (std::int32_t, std::int32_t, std::int32_t windowSize)
{
    return withEffect (
        [&] (JuceAAX_Processor& effect)
        {
            firstRender = true;
            renderWindowSize = windowSize;
            effect.judge().prepareOfflineRender();
        });
}

AAX_Result AAX_AudiosuiteProcessor::PostRender()
{
    return withEffect ([] (JuceAAX_Processor& effect) { effect.judge().finishOfflineRender(); });
}

AAX_Result AAX_AudiosuiteProcessor::AnalyzeAudio (Inputs inputs, std::int32_t numInputs, std::int32_t* windowSize)
{
    return withEffect (
        [&] (JuceAAX_Processor& effect)
        {
            *windowSize -= effect.judge().getLatencySamples();
            processUnheard (effect, inputs, std::max (0, numInputs), *windowSize, Mode::analysis);
        });
}

AAX_Result AAX_AudiosuiteProcessor::PreAnalyze (std::int32_t, std::int32_t)
{
    firstAnalysis = true;
    return withEffect ([] (JuceAAX_Processor& effect) { effect.judge().prepareOfflineAnalysis(); });
}

AAX_Result AAX_AudiosuiteProcessor::PostAnalyze()
{
    return withEffect ([] (JuceAAX_Processor& effect) { effect.judge().finishOfflineAnalysis(); });
}

}   // namespace AAXClasses
