// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/aax/sdk/AAX_CEffectParameters.h"

#include <algorithm>
#include <cstring>

namespace
{

/** Gives a value to a place of the host's. */
template <typename Value>
AAX_Result give (Value* place, Value value)
{
    return place != nullptr ? (*place = value, AAX_SUCCESS) : AAX_ERROR_NULL_OBJECT;
}

}   // namespace

AAX_Result AAX_CEffectParameters::Initialize (AAX_IController* controller)
{
    const auto result = AAX_CObject::Initialize (controller);
    return result == AAX_SUCCESS ? EffectInit() : result;
}

AAX_IParameter* AAX_CEffectParameters::FindParameter (AAX_CParamID id) const
{
    const auto found =
        std::find_if (parameters.begin(), parameters.end(),
                      [id] (auto& one) { return id != nullptr && std::strcmp (one->Info().id, id) == 0; });
    return found != parameters.end() ? found->get() : nullptr;
}

AAX_Result AAX_CEffectParameters::GetParameterInfo (std::int32_t index, AAX_SParameterInfo* info) const
{
    const auto position = static_cast<std::size_t> (index);
    return position < parameters.size() ? give (info, parameters[position]->Info()) : AAX_ERROR_INVALID_ID;
}

AAX_Result AAX_CEffectParameters::GetParameterNormalizedValue (AAX_CParamID id, double* value) const
{
    const auto* const parameter = FindParameter (id);
    return parameter != nullptr ? give (value, parameter->GetNormalizedValue()) : AAX_ERROR_INVALID_ID;
}

AAX_Result AAX_CEffectParameters::SetParameterNormalizedValue (AAX_CParamID id, double value)
{
    return FindParameter (id) != nullptr ? Controller()->PostValue (id, value) : AAX_ERROR_INVALID_ID;
}

AAX_Result AAX_CEffectParameters::UpdateParameterNormalizedValue (AAX_CParamID id, double value)
{
    auto* const parameter = FindParameter (id);

    if (parameter == nullptr)
        return AAX_ERROR_INVALID_ID;

    parameter->UpdateNormalizedValue (value);
    return AAX_SUCCESS;
}

AAX_Result AAX_CEffectParameters::TouchParameter (AAX_CParamID id)
{
    return FindParameter (id) != nullptr ? Controller()->PostTouch (id) : AAX_ERROR_INVALID_ID;
}

AAX_Result AAX_CEffectParameters::ReleaseParameter (AAX_CParamID id)
{
    return FindParameter (id) != nullptr ? Controller()->PostRelease (id) : AAX_ERROR_INVALID_ID;
}

AAX_Result AAX_CEffectParameters::GetNumberOfChunks (std::int32_t* number) const
{
    return give (number, 1);
}

AAX_Result AAX_CEffectParameters::GetChunkIDFromIndex (std::int32_t index, std::uint32_t* chunkId) const
{
    return index == 0 ? give (chunkId, valuesChunk) : AAX_ERROR_INVALID_ID;
}

AAX_Result AAX_CEffectParameters::GetChunkSize (std::uint32_t chunkId, std::uint32_t* size)
{
    const auto sizeOfAll = static_cast<std::uint32_t> (parameters.size() * sizeof (double));
    return chunkId == valuesChunk ? give (size, sizeOfAll) : AAX_ERROR_INVALID_ID;
}

AAX_Result AAX_CEffectParameters::GetChunk (std::uint32_t chunkId, AAX_SPlugInChunk* chunk)
{
    std::vector<double> values;

    for (const auto& parameter : parameters)
        values.push_back (parameter->GetNormalizedValue());

    const auto size = static_cast<std::uint32_t> (values.size() * sizeof (double));

    if (chunkId != valuesChunk || chunk == nullptr || chunk->data == nullptr || chunk->size < size)
        return AAX_ERROR_INVALID_ID;

    chunk->size = size;
    std::memcpy (chunk->data, values.data(), size);
    return AAX_SUCCESS;
}

AAX_Result AAX_CEffectParameters::SetChunk (std::uint32_t chunkId, const AAX_SPlugInChunk* chunk)
{
    std::vector<double> values (parameters.size());

    if (chunkId != valuesChunk || chunk == nullptr || chunk->data == nullptr ||
        chunk->size != values.size() * sizeof (double))
        return AAX_ERROR_INVALID_ID;

    std::memcpy (values.data(), chunk->data, chunk->size);

    for (std::size_t index = 0; index < values.size(); ++index)
        parameters[index]->UpdateNormalizedValue (values[index]);

    return AAX_SUCCESS;
}
