// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst3/VST3Processor.h"

#include "adapters/vst3/Connection.h"
#include "adapters/vst3/ParameterTags.h"
#include "adapters/vst3/Stream.h"
#include "adapters/vst3/VST3Controller.h"

#include <pluginterfaces/base/futils.h>
#include <pluginterfaces/vst/ivstparameterchanges.h>

namespace Steinberg
{
namespace Vst
{
namespace
{

constexpr int32 kMostChannels = 10;

/** Parameter names are normal ids, and the bypass lies far beyond them. */
int idOf (ParamID tag)
{
    return tag < static_cast<ParamID> (kMaxParams) ? static_cast<int> (tag) : kNoParam;
}

}   // namespace

const FUID VST3Processor::cid (0x69B6DB0C, 0xD585A948, 0x54524B50, 0x4C4D5730);

VST3Processor::VST3Processor() : shared (SharedProcessor::create())
{
    setControllerClass (VST3Controller::cid);
    judge().setPlayHead (this);
}

VST3Processor::~VST3Processor()
{
    judge().setPlayHead (nullptr);
}

tresult PLUGIN_API VST3Processor::initialize (FUnknown* context)
{
    if (audioInputs.empty())
        setBuses (STR16 ("Stereo"), SpeakerArr::kStereo, STR16 ("Stereo"), SpeakerArr::kStereo);

    return AudioEffect::initialize (context);
}

tresult PLUGIN_API VST3Processor::terminate()
{
    judge().releaseResources();
    return AudioEffect::terminate();
}

tresult PLUGIN_API VST3Processor::setActive (TBool state)
{
    active = state != 0;

    if (! active)
        judge().releaseResources();

    return AudioEffect::setActive (state);
}

tresult PLUGIN_API VST3Processor::getState (IBStream* stream)
{
    juce::MemoryBlock block;
    judge().saveStream (block);
    return writeAll (stream, block) ? kResultOk : kResultFalse;
}

tresult PLUGIN_API VST3Processor::setState (IBStream* stream)
{
    juce::MemoryBlock block;

    if (! readAll (stream, block))
        return kResultFalse;

    judge().loadStream (block.getData(), block.getSize());
    return kResultOk;
}

tresult PLUGIN_API VST3Processor::getBusInfo (MediaType type, BusDirection direction, int32 index, BusInfo& bus)
{
    const auto result = AudioEffect::getBusInfo (type, direction, index, bus);

    if (result == kResultTrue && type == kAudio)
        bus.channelCount = judge().getMaxNumChannels();

    return result;
}

tresult PLUGIN_API VST3Processor::connect (IConnectionPoint* other)
{
    const auto result = AudioEffect::connect (other);

    if (result == kResultOk)
        connection::tellProcessor (*this, *shared);

    return result;
}

tresult PLUGIN_API VST3Processor::notify (IMessage* message)
{
    if (! connection::asksForProcessor (message))
        return AudioEffect::notify (message);

    connection::tellProcessor (*this, *shared);
    return kResultOk;
}

tresult PLUGIN_API VST3Processor::setBusArrangements (SpeakerArrangement* inputs, int32 numInputBuses,
                                                      SpeakerArrangement* outputs, int32 numOutputBuses)
{
    if (numInputBuses != 1 || numOutputBuses != 1)
        return kNotImplemented;

    if (inputs == nullptr || outputs == nullptr)
        return kInvalidArgument;

    if (*inputs == SpeakerArr::kEmpty || *outputs == SpeakerArr::kEmpty)
        return kResultFalse;

    setBuses (STR16 ("Input"), *inputs, STR16 ("Output"), *outputs);
    reconfigure();
    return kResultTrue;
}

void VST3Processor::setBuses (const TChar* inputName, SpeakerArrangement input, const TChar* outputName,
                              SpeakerArrangement output)
{
    removeAudioBusses();
    addAudioInput (inputName, input);
    addAudioOutput (outputName, output);
    numIns = SpeakerArr::getChannelCount (input);
    numOuts = SpeakerArr::getChannelCount (output);
}

uint32 PLUGIN_API VST3Processor::getLatencySamples()
{
    return static_cast<uint32> (judge().getLatencySamples());
}

tresult PLUGIN_API VST3Processor::setupProcessing (ProcessSetup& setup)
{
    const auto result = AudioEffect::setupProcessing (setup);

    if (result != kResultTrue)
        return result;

    judge().setNonRealtime (false);
    reconfigure();
    return result;
}

void VST3Processor::reconfigure()
{
    if (shared->configure (processSetup.sampleRate, processSetup.maxSamplesPerBlock,
                           AdaptedProcessor::layoutOf (numIns), AdaptedProcessor::layoutOf (numOuts)))
        judge().updateHostDisplay();
}

tresult PLUGIN_API VST3Processor::setProcessing (TBool state)
{
    if (state == 0)
        judge().reset();

    return kResultOk;
}

tresult PLUGIN_API VST3Processor::process (ProcessData& data)
{
    if (data.processContext != nullptr)
        processContext = *data.processContext;

    if (data.inputParameterChanges != nullptr)
        applyParameterChanges (*data.inputParameterChanges);

    const auto result = data.numSamples == 0 ? kResultOk : processAudio (data);

    if (data.outputParameterChanges != nullptr)
        tellParameterChanges (*data.outputParameterChanges, data.numSamples);

    return result;
}

void VST3Processor::applyParameterChanges (IParameterChanges& changes)
{
    for (int32 index = 0; index < changes.getParameterCount(); ++index)
    {
        auto* const queue = changes.getParameterData (index);
        int32 offset = 0;
        ParamValue value = 0.0;

        // What stands at the end of the block counts for all of it.
        if (queue == nullptr || queue->getPointCount() < 1 ||
            queue->getPoint (queue->getPointCount() - 1, offset, value) != kResultTrue)
            continue;

        const auto tag = queue->getParameterId();

        if (tag == kBypassTag)
            shared->bypass = value > 0.5;
        else if (tag != kProgramTag)
            judge().setParameter (idOf (tag), static_cast<float> (value));
    }
}

/** Tells the host at once what the sound has changed, so that no tick has to. */
void VST3Processor::tellParameterChanges (IParameterChanges& changes, int32 numSamples)
{
    judge().takeSoundChanges (
        [&] (int id, float value)
        {
            int32 index = 0;
            auto* const queue = changes.addParameterData (static_cast<ParamID> (id), index);
            return queue != nullptr && queue->addPoint (std::max (0, numSamples - 1), value, index) == kResultTrue;
        });
}

tresult VST3Processor::processAudio (ProcessData& data)
{
    if (data.symbolicSampleSize != kSample32 || data.numSamples < 0 || data.numInputs < 1 || data.numOutputs < 1 ||
        data.inputs == nullptr || data.outputs == nullptr)
        return kResultFalse;

    auto* const* const inputs = data.inputs[0].channelBuffers32;
    auto** const outputs = data.outputs[0].channelBuffers32;

    if (inputs == nullptr || outputs == nullptr)
        return kResultFalse;

    for (int32 bus = 0; bus < data.numOutputs; ++bus)
        data.outputs[bus].silenceFlags = 0;

    const auto numOutputs = std::min (data.outputs[0].numChannels, kMostChannels);
    const auto numChannels = std::min (data.inputs[0].numChannels, numOutputs);

    if (! shared->process (inputs, outputs, numChannels, data.numSamples))
        return kResultFalse;

    for (int32 channel = numChannels; channel < numOutputs; ++channel)
        if (outputs[channel] != nullptr)
            std::fill_n (outputs[channel], data.numSamples, 0.0f);

    return kResultOk;
}

juce::Optional<juce::AudioPlayHead::PositionInfo> VST3Processor::getPosition() const
{
    if (! active)
        return {};

    const auto& context = processContext;
    const auto has = [&context] (uint32 flag) { return (context.state & flag) != 0; };

    juce::Optional<PositionInfo> result { PositionInfo() };   // filled in place: it is large
    auto& position = *result;
    position.setTimeInSamples (std::max<int64> (0, context.projectTimeSamples));
    position.setPpqPosition (context.projectTimeMusic);
    position.setPpqPositionOfLastBarStart (context.barPositionMusic);
    position.setLoopPoints (LoopPoints { context.cycleStartMusic, context.cycleEndMusic });
    position.setBpm (std::max (1.0, context.tempo));
    position.setTimeSignature (
        TimeSignature { std::max<int> (1, context.timeSigNumerator), std::max<int> (1, context.timeSigDenominator) });
    position.setIsPlaying (has (ProcessContext::kPlaying));
    position.setIsRecording (has (ProcessContext::kRecording));
    position.setIsLooping (has (ProcessContext::kCycleActive));
    position.setEditOriginTime (0.0);

    if (! has (ProcessContext::kSmpteValid))
        return result;

    switch (context.frameRate.framesPerSecond)
    {
        case 24:
            position.setFrameRate (FrameRate (fps24));
            break;
        case 25:
            position.setFrameRate (FrameRate (fps25));
            break;
        case 29:
            position.setFrameRate (FrameRate (fps30drop));
            break;
        case 30:
            position.setFrameRate (
                FrameRate ((context.frameRate.flags & Vst::FrameRate::kDropRate) != 0 ? fps30drop : fps30));
            break;
        default:
            break;
    }

    return result;
}

static_assert (sizeof (ProcessContext) == 112);

}   // namespace Vst
}   // namespace Steinberg
