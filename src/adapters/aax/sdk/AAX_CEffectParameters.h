// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/aax/sdk/AAX_CObject.h"
#include "adapters/aax/sdk/AAX_CParameter.h"

#include <memory>
#include <vector>

/** A set of parameters, and a chunk that holds their values; the texts are left to those derived from it. */
class AAX_CEffectParameters : public AAX_CObject<AAX_IEffectParameters>
{
public:
    static constexpr std::uint32_t valuesChunk = 0x76616c73;   // 'vals': one double for each parameter, in order

    AAX_Result Initialize (AAX_IController* controller) override;

    AAX_Result GetParameterInfo (std::int32_t index, AAX_SParameterInfo* info) const override;
    AAX_Result GetParameterNormalizedValue (AAX_CParamID id, double* value) const override;
    AAX_Result SetParameterNormalizedValue (AAX_CParamID id, double value) override;
    AAX_Result UpdateParameterNormalizedValue (AAX_CParamID id, double value) override;
    AAX_Result TouchParameter (AAX_CParamID id) override;
    AAX_Result ReleaseParameter (AAX_CParamID id) override;
    AAX_Result GetNumberOfChunks (std::int32_t* number) const override;
    AAX_Result GetChunkIDFromIndex (std::int32_t index, std::uint32_t* chunkId) const override;
    AAX_Result GetChunkSize (std::uint32_t chunkId, std::uint32_t* size) override;
    AAX_Result GetChunk (std::uint32_t chunkId, AAX_SPlugInChunk* chunk) override;
    AAX_Result SetChunk (std::uint32_t chunkId, const AAX_SPlugInChunk* chunk) override;

protected:
    /** Builds the parameters; the controller is known. */
    virtual AAX_Result EffectInit() = 0;

    template <typename Parameter>
    Parameter& AddParameter (std::unique_ptr<Parameter> parameter)
    {
        auto& added = *parameter;
        parameters.push_back (std::move (parameter));
        return added;
    }

    /** @returns null for an id that is not of this set. */
    AAX_IParameter* FindParameter (AAX_CParamID id) const;
    const std::vector<std::unique_ptr<AAX_IParameter>>& Parameters() const noexcept { return parameters; }

private:
    std::vector<std::unique_ptr<AAX_IParameter>> parameters;   // from `EffectInit` on
};
