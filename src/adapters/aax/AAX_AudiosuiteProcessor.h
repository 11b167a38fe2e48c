// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/aax/JuceAAX_Processor.h"
#include "adapters/aax/sdk/AAX_CObject.h"

namespace AAXClasses
{

/** Offline passes over whole clips [the host's render thread].

    What leaves the processor its latency late is put back in place: a first window gives up the samples at its start, a
    later one reads ahead by as many, and either holds fewer samples than were offered. */
class AAX_AudiosuiteProcessor : public AAX_CHostProcessor
{
public:
    static AAX_IHostProcessor* create() { return new AAX_AudiosuiteProcessor; }

    // AAX_IHostProcessor
    AAX_Result Initialize (AAX_IController* controller) override;
    AAX_Result RenderAudio (Inputs inputs, std::int32_t numInputs, Outputs outputs, std::int32_t numOutputs,
                            std::int32_t* windowSize) override;
    AAX_Result PreRender (std::int32_t numInputs, std::int32_t numOutputs, std::int32_t windowSize) override;
    AAX_Result PostRender() override;
    AAX_Result AnalyzeAudio (Inputs inputs, std::int32_t numInputs, std::int32_t* windowSize) override;
    AAX_Result PreAnalyze (std::int32_t numInputs, std::int32_t windowSize) override;
    AAX_Result PostAnalyze() override;

private:
    AAX_AudiosuiteProcessor() = default;

    /** Does something with the processor of this instance; that there is none goes to the log. */
    template <typename Action>
    AAX_Result withEffect (Action&& action);

    bool firstRender = true, firstAnalysis = true;   // the next one begins a pass
    std::int32_t renderWindowSize = 0;               // samples, of the pass
};

}   // namespace AAXClasses
