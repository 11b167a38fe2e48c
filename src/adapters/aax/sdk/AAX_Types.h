// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

// Numbers and records that host and plug-in exchange, as far as this system meets them.

using AAX_CParamID = const char*;   // a text

enum AAX_Result : std::int32_t
{
    AAX_SUCCESS = 0,
    AAX_ERROR_INVALID_ID = -20001,
    AAX_ERROR_NULL_OBJECT = -20004   // something that the call needs is not there
};

enum AAX_EStemFormat : std::int32_t
{
    AAX_eStemFormat_None = 0,
    AAX_eStemFormat_Mono = 0x00000001,
    AAX_eStemFormat_Stereo = 0x00010002
};

enum AAX_EProperty : std::int32_t
{
    AAX_eProperty_ManufacturerID = 11,
    AAX_eProperty_ProductID = 12,
    AAX_eProperty_PlugInID_Native = 13,
    AAX_eProperty_InputStemFormat = 51,
    AAX_eProperty_OutputStemFormat = 52,
    AAX_eProperty_CanBypass = 60,
    AAX_eProperty_MultiMonoSupport = 304
};

struct AAX_SProperty
{
    AAX_EProperty number;
    std::int32_t value;
};

/** Bits of the mask that goes with a mouse event. */
enum AAX_EModifiers : std::uint32_t
{
    AAX_eModifiers_Shift = 1,
    AAX_eModifiers_Control = 2,
    AAX_eModifiers_Option = 4,
    AAX_eModifiers_Command = 8,
    AAX_eModifiers_SecondaryButton = 16
};

enum AAX_EViewContainer_Type : std::int32_t
{
    AAX_eViewContainer_Type_Null = 0,
    AAX_eViewContainer_Type_Window = 3   // a handle of the window system
};

enum AAX_EFrameRate : std::int32_t
{
    AAX_eFrameRate_24 = 1,
    AAX_eFrameRate_25 = 2,
    AAX_eFrameRate_2997 = 3,
    AAX_eFrameRate_2997Drop = 4,
    AAX_eFrameRate_30 = 5,
    AAX_eFrameRate_30Drop = 6,
    AAX_eFrameRate_23976 = 7
};

constexpr double kAAX_TicksPerQuarter = 960000.0;

struct AAX_Point
{
    float horizontal, vertical;   // pixels
};

/** What a host reads of a parameter; the texts live as long as the parameter. */
struct AAX_SParameterInfo
{
    AAX_CParamID id;
    const char* name;
    double defaultValue;   // from 0 to 1, as every value that the host sees
    std::int32_t numSteps;
    bool isAutomatable, isContinuous;
};

/** A stretch of saved state. */
struct AAX_SPlugInChunk
{
    std::uint32_t size;   // bytes of data: what there is, or what there is room for
    char* data;
};

/** The fields of a context by number: pointers to what a block consists of, and from `AAX_eField_Private` on places as large
    as a pointer for data of the plug-in's own, which `ResetFieldData` fills. */
enum AAX_EField : std::int32_t
{
    AAX_eField_AudioIn = 0,             // float*: one array per channel
    AAX_eField_AudioOut = 1,            // float*: one array per channel
    AAX_eField_AudioBufferLength = 2,   // std::int32_t: samples
    AAX_eField_Private = 3
};

/** Processes one block for each context from `first` up to `last` [audio thread]. */
using AAX_CProcessProc = void (*) (void* const* first, void* const* last);
