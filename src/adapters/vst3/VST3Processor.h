// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/MessageThread.h"
#include "adapters/vst3/SharedProcessor.h"
#include "adapters/vst3/sdk/AudioEffect.h"

namespace Steinberg
{
namespace Vst
{

/** The component: one `DuoJudgeProcessor` as the host's audio processor, and the host's timeline as its play head.

    `process` and the play head belong to the host's audio thread, all else to its main thread. */
class VST3Processor : public AudioEffect, public juce::AudioPlayHead
{
public:
    VST3Processor();
    ~VST3Processor() override;

    static const FUID cid;

    /** Makes one with a reference that the caller owns. */
    static FUnknown* create (void*) { return static_cast<IAudioProcessor*> (new VST3Processor()); }

    // IPluginBase, IComponent
    tresult PLUGIN_API initialize (FUnknown* context) override;
    tresult PLUGIN_API terminate() override;
    tresult PLUGIN_API setActive (TBool state) override;
    tresult PLUGIN_API getState (IBStream* stream) override;
    tresult PLUGIN_API setState (IBStream* stream) override;
    tresult PLUGIN_API getBusInfo (MediaType type, BusDirection direction, int32 index, BusInfo& bus) override;
    tresult PLUGIN_API getRoutingInfo (RoutingInfo&, RoutingInfo&) override { return kNotImplemented; }

    // IConnectionPoint
    tresult PLUGIN_API connect (IConnectionPoint* other) override;
    tresult PLUGIN_API notify (IMessage* message) override;

    // IAudioProcessor
    tresult PLUGIN_API setBusArrangements (SpeakerArrangement* inputs, int32 numInputBuses, SpeakerArrangement* outputs,
                                           int32 numOutputBuses) override;
    uint32 PLUGIN_API getLatencySamples() override;
    tresult PLUGIN_API setupProcessing (ProcessSetup& setup) override;
    tresult PLUGIN_API setProcessing (TBool state) override;
    tresult PLUGIN_API process (ProcessData& data) override;

    // juce::AudioPlayHead
    juce::Optional<PositionInfo> getPosition() const override;

private:
    DuoJudgeProcessor& judge() const noexcept { return shared->get(); }

    void setBuses (const TChar* inputName, SpeakerArrangement input, const TChar* outputName,
                   SpeakerArrangement output);
    void reconfigure();
    void applyParameterChanges (IParameterChanges& changes);
    void tellParameterChanges (IParameterChanges& changes, int32 numSamples);
    tresult processAudio (ProcessData& data);

    MessageThread::User toolkit;   // goes last
    const SharedProcessor::Ptr shared;
    Relaxed<bool> active = false;
    int32 numIns = 2, numOuts = 2;
    ProcessContext processContext {};   // the latest that the host gave [audio thread]
};

}   // namespace Vst
}   // namespace Steinberg
