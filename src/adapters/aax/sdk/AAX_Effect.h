// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/aax/sdk/AAX_Host.h"

/** The parameters, the state and the data of an instance [any thread, unless said otherwise]. */
class AAX_IEffectParameters
{
public:
    virtual ~AAX_IEffectParameters() = default;

    /** Comes first, and once. */
    virtual AAX_Result Initialize (AAX_IController* controller) = 0;

    /** Gives none beyond the last one. */
    virtual AAX_Result GetParameterInfo (std::int32_t index, AAX_SParameterInfo* info) const = 0;
    virtual AAX_Result GetParameterNormalizedValue (AAX_CParamID id, double* value) const = 0;

    /** Writes at most `maxLength` characters of the value's text, and an end. */
    virtual AAX_Result GetParameterValueString (AAX_CParamID id, char* text, std::int32_t maxLength) const = 0;

    /** The first asks the host for a new value; the second is the host's answer, or its own change. */
    virtual AAX_Result SetParameterNormalizedValue (AAX_CParamID id, double value) = 0;
    virtual AAX_Result UpdateParameterNormalizedValue (AAX_CParamID id, double value) = 0;
    virtual AAX_Result TouchParameter (AAX_CParamID id) = 0;
    virtual AAX_Result ReleaseParameter (AAX_CParamID id) = 0;

    virtual AAX_Result GetNumberOfChunks (std::int32_t* number) const = 0;
    virtual AAX_Result GetChunkIDFromIndex (std::int32_t index, std::uint32_t* chunkId) const = 0;
    virtual AAX_Result GetChunkSize (std::uint32_t chunkId, std::uint32_t* size) = 0;
    virtual AAX_Result GetChunk (std::uint32_t chunkId, AAX_SPlugInChunk* chunk) = 0;
    virtual AAX_Result SetChunk (std::uint32_t chunkId, const AAX_SPlugInChunk* chunk) = 0;

    /** Fills a field of a context with the plug-in's own data [while no audio runs]. */
    virtual AAX_Result ResetFieldData (std::int32_t field, void* data, std::uint32_t size) = 0;
};

/** The view of an instance [one thread of the host's]. */
class AAX_IEffectGUI
{
public:
    virtual ~AAX_IEffectGUI() = default;

    virtual AAX_Result Initialize (AAX_IController* controller) = 0;

    /** Opens the view in a container, or closes it with null; one that is open is closed first. */
    virtual AAX_Result SetViewContainer (AAX_IViewContainer* container) = 0;
    virtual AAX_Result GetViewSize (AAX_Point* size) const = 0;
};

/** Processes whole clips of any length [the host's render thread]. A window size is what the host offers, and on return what
    the outputs hold. */
class AAX_IHostProcessor
{
public:
    using Inputs = const float* const*;
    using Outputs = float* const*;

    virtual ~AAX_IHostProcessor() = default;

    virtual AAX_Result Initialize (AAX_IController* controller) = 0;
    virtual AAX_Result RenderAudio (Inputs inputs, std::int32_t numInputs, Outputs outputs, std::int32_t numOutputs,
                                    std::int32_t* windowSize) = 0;
    virtual AAX_Result PreRender (std::int32_t numInputs, std::int32_t numOutputs, std::int32_t windowSize) = 0;
    virtual AAX_Result PostRender() = 0;
    virtual AAX_Result AnalyzeAudio (Inputs inputs, std::int32_t numInputs, std::int32_t* windowSize) = 0;
    virtual AAX_Result PreAnalyze (std::int32_t numInputs, std::int32_t windowSize) = 0;
    virtual AAX_Result PostAnalyze() = 0;
};
