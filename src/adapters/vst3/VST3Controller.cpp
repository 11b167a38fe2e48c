// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst3/VST3Controller.h"

#include "adapters/vst3/Connection.h"
#include "adapters/vst3/ParameterTags.h"
#include "adapters/vst3/Stream.h"
#include "adapters/vst3/VST3Editor.h"

#include <pluginterfaces/base/ustring.h>

namespace Steinberg
{
namespace Vst
{
namespace
{

/** A text of ours as the host wants it, cut to what fits. */
void copyText (const juce::String& from, String128 to)
{
    constexpr std::size_t capacity = sizeof (String128) / sizeof (TChar);
    const auto* const text = reinterpret_cast<const TChar*> (from.toUTF16().getAddress());
    const auto length = std::min (capacity - 1, std::char_traits<TChar>::length (text));
    std::copy_n (text, length, to);
    to[length] = 0;
}

juce::String toText (const TChar* text)
{
    return juce::String (juce::CharPointer_UTF16 (reinterpret_cast<const juce::CharPointer_UTF16::CharType*> (text)));
}

}   // namespace

const FUID VST3Controller::cid (0x6AB6DB0C, 0xD585A948, 0x54524B50, 0x4C4D5730);

VST3Controller::VST3Controller() : shared (SharedProcessor::newest())
{
}

VST3Controller::~VST3Controller()
{
    stopListening();
}

tresult PLUGIN_API VST3Controller::initialize (FUnknown* context)
{
    // Some hosts call once more; the first list of parameters stands.
    if (std::exchange (initialized, true))
        return kResultOk;

    const auto result = EditController::initialize (context);
    listen();

    if (result != kResultOk || shared == nullptr)
        return result;

    buildParameters();
    audioProcessorChanged (&shared->get(), {});
    return result;
}

tresult PLUGIN_API VST3Controller::terminate()
{
    initialized = false;
    stopListening();
    return EditController::terminate();
}

void VST3Controller::listen()
{
    if (shared != nullptr && initialized)
        shared->addListener (*this);
}

void VST3Controller::stopListening()
{
    if (shared != nullptr)
        shared->removeListener (*this);
}

/** @returns the processor, or null while there is none. Asks once more where the connection let the answer drop. */
DuoJudgeProcessor* VST3Controller::getJudge()
{
    if (! told && getPeer() != nullptr)
        connection::askForProcessor (*this);

    return shared != nullptr ? &shared->get() : nullptr;
}

void VST3Controller::adopt (const SharedProcessor::Ptr& newProcessor)
{
    told = true;

    if (newProcessor == shared)
        return;

    const auto hadNone = shared == nullptr;
    stopListening();
    shared = newProcessor;
    listen();

    if (hadNone && initialized)
        buildParameters();

    if (componentHandler != nullptr)
        componentHandler->restartComponent (hadNone ? kParamTitlesChanged | kParamValuesChanged : kParamValuesChanged);
}

void VST3Controller::buildParameters()
{
    parameters.addParameter (STR16 ("Master Bypass"), STR16 (""), 1, 0.0,
                             ParameterInfo::kCanAutomate | ParameterInfo::kIsBypass, kBypassTag);
    auto& judge = shared->get();

    for (int id = 0; id < judge.getNumParameters(); ++id)
    {
        if (! judge.isParameterHostVisible (id))
            continue;

        String128 title, units;
        copyText (judge.getParameterName (id), title);
        copyText (judge.getParameterLabel (id), units);
        parameters.addParameter (
            title, units, 0, judge.parameter (id).defaultValue,
            judge.isParameterAutomatable (id) ? ParameterInfo::kCanAutomate : ParameterInfo::kIsReadOnly, id);
    }
}

tresult PLUGIN_API VST3Controller::connect (IConnectionPoint* other)
{
    const auto result = EditController::connect (other);

    if (result == kResultOk)
        connection::askForProcessor (*this);

    return result;
}

tresult PLUGIN_API VST3Controller::notify (IMessage* message)
{
    if (const auto processor = connection::getToldProcessor (message))
    {
        adopt (processor);
        return kResultOk;
    }

    return EditController::notify (message);
}

tresult PLUGIN_API VST3Controller::setComponentState (IBStream* stream)
{
    auto* const judge = getJudge();
    juce::MemoryBlock block;

    if (judge == nullptr || ! readAll (stream, block))
        return kResultFalse;

    judge->loadStream (block.getData(), block.getSize());
    return kResultOk;
}

tresult PLUGIN_API VST3Controller::setState (IBStream* stream)
{
    auto* const judge = getJudge();
    juce::MemoryBlock block;

    if (judge == nullptr || ! readAll (stream, block))
        return kResultFalse;

    judge->setExtraStateBlock (block.getData(), static_cast<int> (block.getSize()));
    return kResultOk;
}

tresult PLUGIN_API VST3Controller::getState (IBStream* stream)
{
    auto* const judge = getJudge();
    juce::MemoryBlock block;

    if (judge == nullptr)
        return kResultFalse;

    judge->getExtraStateBlock (block);
    return writeAll (stream, block) ? kResultOk : kResultFalse;
}

bool VST3Controller::isProcessorParameter (ParamID tag)
{
    return tag != kBypassTag && getJudge() != nullptr && getParameterObject (tag) != nullptr;
}

tresult PLUGIN_API VST3Controller::getParamStringByValue (ParamID tag, ParamValue value, String128 text)
{
    if (! isProcessorParameter (tag))
        return EditController::getParamStringByValue (tag, value, text);

    copyText (shared->get().getTextOfValue (static_cast<int> (tag), static_cast<float> (value)), text);
    return kResultTrue;
}

tresult PLUGIN_API VST3Controller::getParamValueByString (ParamID tag, TChar* text, ParamValue& value)
{
    if (text == nullptr)
        return kInvalidArgument;

    if (isProcessorParameter (tag))
        for (const auto end : { 0.0f, 1.0f })
            if (toText (text).trim().equalsIgnoreCase (shared->get().getTextOfValue (static_cast<int> (tag), end)))
            {
                value = static_cast<ParamValue> (end);
                return kResultTrue;
            }

    return EditController::getParamValueByString (tag, text, value);
}

ParamValue PLUGIN_API VST3Controller::getParamNormalized (ParamID tag)
{
    auto* const judge = getJudge();

    if (judge == nullptr || tag == kProgramTag)
        return 0.0;

    if (tag == kBypassTag)
        return shared->bypass ? 1.0 : 0.0;

    return tag < static_cast<ParamID> (kMaxParams) ? judge->getParameter (static_cast<int> (tag)) : 0.0;
}

tresult PLUGIN_API VST3Controller::setParamNormalized (ParamID tag, ParamValue value)
{
    if (auto* const judge = getJudge(); judge != nullptr && tag < static_cast<ParamID> (kMaxParams))
        judge->setParameter (static_cast<int> (tag), static_cast<float> (value));

    return EditController::setParamNormalized (tag, value);
}

IPlugView* PLUGIN_API VST3Controller::createView (FIDString name)
{
    if (getJudge() == nullptr || name == nullptr || ! FIDStringsEqual (name, ViewType::kEditor))
        return nullptr;

    return VST3Editor::create (*this, shared);
}

void VST3Controller::audioProcessorParameterChanged (juce::AudioProcessor*, int id, float value)
{
    performEdit (static_cast<ParamID> (id), value);
}

void VST3Controller::audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&)
{
    if (componentHandler != nullptr)
        componentHandler->restartComponent (0);
}

}   // namespace Vst
}   // namespace Steinberg
