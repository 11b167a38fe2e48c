// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/MessageThread.h"
#include "adapters/vst3/SharedProcessor.h"

#include <public.sdk/source/vst/vsteditcontroller.h>

namespace Steinberg
{
namespace Vst
{

/** The host's view of the parameters, and the maker of the editor's view [the host's main thread].

    It takes the newest processor until its component tells which is its own. */
class VST3Controller : public EditController, private juce::AudioProcessorListener
{
public:
    VST3Controller();
    ~VST3Controller() override;

    static const FUID cid;

    /** Makes one with a reference that the caller owns. */
    static FUnknown* create (void*) { return static_cast<IEditController*> (new VST3Controller()); }

    // IPluginBase
    tresult PLUGIN_API initialize (FUnknown* context) override;
    tresult PLUGIN_API terminate() override;

    // IConnectionPoint
    tresult PLUGIN_API connect (IConnectionPoint* other) override;
    tresult PLUGIN_API notify (IMessage* message) override;

    // IEditController
    tresult PLUGIN_API setComponentState (IBStream* stream) override;
    tresult PLUGIN_API setState (IBStream* stream) override;
    tresult PLUGIN_API getState (IBStream* stream) override;
    tresult PLUGIN_API getParamStringByValue (ParamID tag, ParamValue value, String128 text) override;
    tresult PLUGIN_API getParamValueByString (ParamID tag, TChar* text, ParamValue& value) override;
    ParamValue PLUGIN_API getParamNormalized (ParamID tag) override;
    tresult PLUGIN_API setParamNormalized (ParamID tag, ParamValue value) override;
    IPlugView* PLUGIN_API createView (FIDString name) override;

private:
    // juce::AudioProcessorListener [the thread that wrote]
    void audioProcessorParameterChanged (juce::AudioProcessor*, int id, float value) override;
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override;

    DuoJudgeProcessor* getJudge();
    bool isProcessorParameter (ParamID tag);
    void adopt (const SharedProcessor::Ptr& newProcessor);
    void listen();
    void stopListening();
    void buildParameters();

    MessageThread::User toolkit;   // goes last
    SharedProcessor::Ptr shared;   // null while there is none
    bool told = false;             // `shared` is the component's, for certain
    bool initialized = false;
};

}   // namespace Vst
}   // namespace Steinberg
