// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/aax/sdk/AAX_Types.h"

// What the host gives. A call that does not succeed leaves the places that it would fill as they are.

class AAX_IEffectParameters;
class AAX_IEffectGUI;
class AAX_IHostProcessor;

/** The timeline [audio thread]; a host leaves out what it does not have. */
class AAX_ITransport
{
public:
    virtual ~AAX_ITransport() = default;

    virtual AAX_Result IsTransportPlaying (bool* playing) const = 0;
    virtual AAX_Result GetCurrentSampleLocation (std::int64_t* samples) const = 0;

    virtual AAX_Result GetCurrentTempo (double*) const { return AAX_ERROR_NULL_OBJECT; }   // quarters per minute
    virtual AAX_Result GetCurrentMeter (std::int32_t*, std::int32_t*) const { return AAX_ERROR_NULL_OBJECT; }
    virtual AAX_Result GetCurrentTickPosition (std::int64_t*) const { return AAX_ERROR_NULL_OBJECT; }
    virtual AAX_Result GetFrameRate (AAX_EFrameRate*) const { return AAX_ERROR_NULL_OBJECT; }

    /** Tells whether there is a loop, and the ticks of its start and its end. */
    virtual AAX_Result GetCurrentLoopPosition (bool*, std::int64_t*, std::int64_t*) const
    {
        return AAX_ERROR_NULL_OBJECT;
    }
};

/** The host's side of one instance; it outlives the instance's objects. */
class AAX_IController
{
public:
    virtual ~AAX_IController() = default;

    virtual AAX_Result GetSampleRate (double* hertz) const = 0;
    virtual AAX_Result GetInputStemFormat (AAX_EStemFormat* format) const = 0;
    virtual AAX_Result GetOutputStemFormat (AAX_EStemFormat* format) const = 0;
    virtual AAX_Result SetSignalLatency (std::int32_t samples) = 0;

    /** What the instance does to a parameter itself [any thread]; a value comes back as an update. */
    virtual AAX_Result PostTouch (AAX_CParamID id) = 0;
    virtual AAX_Result PostValue (AAX_CParamID id, double value) = 0;
    virtual AAX_Result PostRelease (AAX_CParamID id) = 0;

    /** The parameters of this instance, for its other objects. */
    virtual AAX_IEffectParameters* GetEffectParameters() = 0;

    /** @returns null in a host without a timeline. */
    virtual AAX_ITransport* GetTransport() = 0;
};

/** Where the host shows a view, and what it does with the mouse over parameters [message thread]. */
class AAX_IViewContainer
{
public:
    virtual ~AAX_IViewContainer() = default;

    virtual AAX_EViewContainer_Type GetType() const = 0;
    virtual void* GetPtr() const = 0;
    virtual AAX_Result SetViewSize (const AAX_Point& size) = 0;

    // These succeed if the host takes the event for itself.
    virtual AAX_Result HandleParameterMouseDown (AAX_CParamID id, std::uint32_t modifiers) = 0;
    virtual AAX_Result HandleParameterMouseDrag (AAX_CParamID id, std::uint32_t modifiers) = 0;
    virtual AAX_Result HandleParameterMouseUp (AAX_CParamID id, std::uint32_t modifiers) = 0;
};

/** What a plug-in tells of itself before there is an instance. */
class AAX_IEffectDescriptor
{
public:
    virtual ~AAX_IEffectDescriptor() = default;

    virtual AAX_Result AddName (const char* name) = 0;   // the longest first
    virtual AAX_Result AddCategory (std::uint32_t category) = 0;

    // Who makes the objects of an instance, which the host deletes, the effect parameters last
    virtual AAX_Result AddCreator (AAX_IEffectParameters* (*create)()) = 0;
    virtual AAX_Result AddCreator (AAX_IEffectGUI* (*create)()) = 0;
    virtual AAX_Result AddCreator (AAX_IHostProcessor* (*create)()) = 0;

    /** Adds a type of the effect, with its algorithm. */
    virtual AAX_Result AddType (AAX_CProcessProc process, const AAX_SProperty* properties, int numProperties) = 0;
};

class AAX_ICollection
{
public:
    virtual ~AAX_ICollection() = default;

    /** @returns null in a host that wants no more effects; else one that `AddEffect` completes. */
    virtual AAX_IEffectDescriptor* NewDescriptor() = 0;
    virtual AAX_Result AddEffect (const char* id, AAX_IEffectDescriptor* descriptor) = 0;
};
