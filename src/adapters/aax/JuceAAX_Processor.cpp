// SPDX-License-Identifier: GPL-3.0-or-later
// The life of an instance, and the state that a session holds.
#include "adapters/aax/JuceAAX_Processor.h"

namespace AAXClasses
{
namespace
{

constexpr std::uint32_t kStateChunk = 0x6a756365;   // 'juce'

/** @returns 0 for a format that no type of this plug-in has. */
int countChannels (AAX_EStemFormat format)
{
    constexpr int countMask = 0xffff;
    return format == AAX_eStemFormat_Mono || format == AAX_eStemFormat_Stereo ? format & countMask : 0;
}

}   // namespace

JuceAAX_Processor::JuceAAX_Processor() : processor (new AdaptedProcessor (OxJuceProcessorBase::typeAax))
{
    judge().setPlayHead (this);
}

JuceAAX_Processor::~JuceAAX_Processor()
{
    processor->removeListener (*this);
    judge().setPlayHead (nullptr);
}

AAX_Result JuceAAX_Processor::EffectInit()
{
    if (double told = 0.0; Controller()->GetSampleRate (&told) == AAX_SUCCESS && told > 0.0)
        sampleRate = told;

    const auto result = prepare();
    addParameters();
    processor->addListener (*this);   // from here on there are parameters to tell of
    return result;
}

AAX_Result JuceAAX_Processor::prepare()
{
    auto input = AAX_eStemFormat_None, output = AAX_eStemFormat_None;
    Controller()->GetInputStemFormat (&input);
    Controller()->GetOutputStemFormat (&output);
    const auto numChannels = countChannels (input);

    if (numChannels == 0 || input != output)
        return AAX_ERROR_NULL_OBJECT;

    const auto layout = AdaptedProcessor::layoutOf (numChannels);
    isPrepared = processor->configure (sampleRate, blockSize, layout, layout);
    Controller()->SetSignalLatency (judge().getLatencySamples());
    return isPrepared ? AAX_SUCCESS : AAX_ERROR_NULL_OBJECT;
}

AAX_Result JuceAAX_Processor::ResetFieldData (std::int32_t field, void* data, std::uint32_t size)
{
    if (data == nullptr || Controller() == nullptr)
        return AAX_ERROR_NULL_OBJECT;

    if (field == fieldProcessor && size >= sizeof (this))
    {
        *static_cast<JuceAAX_Processor**> (data) = this;
        return AAX_SUCCESS;
    }

    if (field != fieldPrepared || size < sizeof (std::int32_t))
        return AAX_ERROR_INVALID_ID;

    const auto result = isPrepared ? AAX_SUCCESS : prepare();
    *static_cast<std::int32_t*> (data) = result == AAX_SUCCESS ? 1 : 0;
    return result;
}

AAX_Result JuceAAX_Processor::GetChunkIDFromIndex (std::int32_t index, std::uint32_t* chunkId) const
{
    const auto result = AAX_CEffectParameters::GetChunkIDFromIndex (index, chunkId);

    if (result == AAX_SUCCESS)
        *chunkId = kStateChunk;

    return result;
}

AAX_Result JuceAAX_Processor::GetChunkSize (std::uint32_t chunkId, std::uint32_t* size)
{
    if (chunkId != kStateChunk)
        return AAX_CEffectParameters::GetChunkSize (chunkId, size);

    if (size == nullptr)
        return AAX_ERROR_NULL_OBJECT;

    const juce::ScopedLock lock (chunkLock);
    chunk.reset();
    judge().getStateInformation (chunk);
    *size = static_cast<std::uint32_t> (chunk.getSize());
    return AAX_SUCCESS;
}

AAX_Result JuceAAX_Processor::GetChunk (std::uint32_t chunkId, AAX_SPlugInChunk* given)
{
    if (chunkId != kStateChunk)
        return AAX_CEffectParameters::GetChunk (chunkId, given);

    const juce::ScopedLock lock (chunkLock);

    if (chunk.isEmpty())
        judge().getStateInformation (chunk);

    if (given == nullptr || given->data == nullptr || given->size < chunk.getSize())
        return AAX_ERROR_NULL_OBJECT;

    given->size = static_cast<std::uint32_t> (chunk.getSize());
    chunk.copyTo (given->data, 0, chunk.getSize());
    chunk.reset();
    return AAX_SUCCESS;
}

AAX_Result JuceAAX_Processor::SetChunk (std::uint32_t chunkId, const AAX_SPlugInChunk* given)
{
    if (chunkId != kStateChunk)
    {
        const auto result = AAX_CEffectParameters::SetChunk (chunkId, given);

        if (result == AAX_SUCCESS)
            for (const auto& parameter : Parameters())
                judge().setParameter (numberOf (parameter->Info().id),
                                      static_cast<float> (parameter->GetNormalizedValue()));

        return result;
    }

    if (given == nullptr || given->data == nullptr ||
        given->size > static_cast<std::uint32_t> (std::numeric_limits<int>::max()))
        return AAX_ERROR_NULL_OBJECT;

    judge().setStateInformation (given->data, static_cast<int> (given->size));

    for (int id = 0; id < judge().getNumParameters(); ++id)
        SetParameterNormalizedValue (std::to_string (id).c_str(), judge().getParameter (id));

    return AAX_SUCCESS;
}

}   // namespace AAXClasses
