// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pluginterfaces/vst/ivstaudioprocessor.h>
#include <pluginterfaces/vst/ivstprocesscontext.h>
#include <public.sdk/source/vst/vstcomponent.h>

namespace Steinberg
{
namespace Vst
{

/** A component that processes audio: buses, arrangements and the processing setup, as the SDK's own base of this name
    keeps them. The toolkit's copy of the SDK comes without it. */
class AudioEffect : public Component, public IAudioProcessor
{
public:
    AudioEffect() = default;

    /** Appends a main audio bus that is active from the start. */
    AudioBus* addAudioInput (const TChar* name, SpeakerArrangement arrangement);
    AudioBus* addAudioOutput (const TChar* name, SpeakerArrangement arrangement);

    // IAudioProcessor
    tresult PLUGIN_API setBusArrangements (SpeakerArrangement* inputs, int32 numIns, SpeakerArrangement* outputs,
                                           int32 numOuts) override;
    tresult PLUGIN_API getBusArrangement (BusDirection direction, int32 index,
                                          SpeakerArrangement& arrangement) override;
    tresult PLUGIN_API canProcessSampleSize (int32 symbolicSampleSize) override;
    uint32 PLUGIN_API getLatencySamples() override { return 0; }
    tresult PLUGIN_API setupProcessing (ProcessSetup& setup) override;
    tresult PLUGIN_API setProcessing (TBool) override { return kNotImplemented; }
    tresult PLUGIN_API process (ProcessData&) override { return kNotImplemented; }
    uint32 PLUGIN_API getTailSamples() override { return kNoTail; }

    OBJ_METHODS (AudioEffect, Component)
    DEFINE_INTERFACES
    DEF_INTERFACE (IAudioProcessor)
    END_DEFINE_INTERFACES (Component)
    REFCOUNT_METHODS (Component)

protected:
    ProcessSetup processSetup { kRealtime, kSample32, 1024, 44100.0 };
};

}   // namespace Vst
}   // namespace Steinberg
