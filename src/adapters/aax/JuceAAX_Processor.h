// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/AdaptedProcessor.h"
#include "adapters/aax/sdk/AAX_CEffectParameters.h"

namespace AAXClasses
{

/** One `DuoJudgeProcessor` as the parameters, the state and the algorithm of an instance.

    The host numbers parameters by text: that of a parameter is its id in decimals, and the bypass has one of its own. */
class JuceAAX_Processor : public AAX_CEffectParameters,
                          private juce::AudioPlayHead,
                          private juce::AudioProcessorListener
{
public:
    using Mode = AdaptedProcessor::Mode;

    /** What the algorithm gets for a block. */
    struct Context
    {
        const float* const* inputs;
        float* const* outputs;
        const std::int32_t* numSamples;
        JuceAAX_Processor* const* processor;
        const std::int32_t* prepared;
    };

    /** The numbers of its own fields. */
    enum Field : std::int32_t
    {
        fieldProcessor = AAX_eField_Private,
        fieldPrepared
    };

    static AAX_IEffectParameters* create() { return new JuceAAX_Processor; }
    ~JuceAAX_Processor() override;

    /** The algorithm: one real-time block for each context [audio thread]. */
    static void processContexts (void* const* first, void* const* last);

    /** Processes a stretch of any length [audio thread, or the host's render thread].
        @returns false, and processes nothing, without samples, if a channel is null, or for a block that meets a pass */
    bool process (const float* const* inputs, float* const* outputs, int numChannels, int numSamples, Mode mode);

    /** Tells the product what the host has the instance for, if that is new [the host's thread, or the audio thread]. */
    void setAudioSuite (bool isOffline);

    DuoJudgeProcessor& judge() const noexcept { return processor->get(); }

    // AAX_IEffectParameters
    AAX_Result GetParameterNormalizedValue (AAX_CParamID id, double* value) const override;
    AAX_Result GetParameterValueString (AAX_CParamID id, char* text, std::int32_t maxLength) const override;
    AAX_Result UpdateParameterNormalizedValue (AAX_CParamID id, double value) override;
    AAX_Result GetChunkIDFromIndex (std::int32_t index, std::uint32_t* chunkId) const override;
    AAX_Result GetChunkSize (std::uint32_t chunkId, std::uint32_t* size) override;
    AAX_Result GetChunk (std::uint32_t chunkId, AAX_SPlugInChunk* chunk) override;
    AAX_Result SetChunk (std::uint32_t chunkId, const AAX_SPlugInChunk* chunk) override;
    AAX_Result ResetFieldData (std::int32_t field, void* data, std::uint32_t size) override;

private:
    JuceAAX_Processor();

    // AAX_CEffectParameters
    AAX_Result EffectInit() override;

    AAX_Result prepare();
    void addParameters();

    /** @returns the id behind the host's text, or `kNoParam` for one that it has from elsewhere. */
    static int numberOf (AAX_CParamID id);

    // juce::AudioProcessorListener [the thread that wrote]
    void audioProcessorParameterChanged (juce::AudioProcessor*, int id, float value) override;
    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int id) override;
    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int id) override;
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override {}

    // juce::AudioPlayHead [audio thread]
    juce::Optional<PositionInfo> getPosition() const override;

    MessageThread::User toolkit;   // goes last
    const AdaptedProcessor::Ptr processor;
    const AAX_CParameter<bool>* bypass = nullptr;   // from `EffectInit` on

    double sampleRate = 96000.0;   // until the host speaks
    const int blockSize = 1024;    // samples: the longest that the host plays
    bool isPrepared = false;
    std::atomic<bool> isProcessing { false };   // a block or a pass

    juce::CriticalSection chunkLock;
    juce::MemoryBlock chunk;   // the state that the host has asked the size of
};

}   // namespace AAXClasses
