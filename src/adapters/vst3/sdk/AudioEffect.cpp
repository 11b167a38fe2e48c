// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst3/sdk/AudioEffect.h"

namespace Steinberg
{
namespace Vst
{
namespace
{

AudioBus* addMainBus (BusList& buses, const TChar* name, SpeakerArrangement arrangement)
{
    auto* const bus = new AudioBus (name, kMain, BusInfo::kDefaultActive, arrangement);
    buses.push_back (owned (static_cast<Bus*> (bus)));
    return bus;
}

/** Gives each bus its arrangement, if there is exactly one for each. */
bool takeArrangements (BusList& buses, const SpeakerArrangement* arrangements, int32 count)
{
    if (static_cast<int32> (buses.size()) != count)
        return false;

    for (int32 index = 0; index < count; ++index)
        static_cast<AudioBus*> (buses[static_cast<std::size_t> (index)].get())->setArrangement (arrangements[index]);

    return true;
}

}   // namespace

AudioBus* AudioEffect::addAudioInput (const TChar* name, SpeakerArrangement arrangement)
{
    return addMainBus (audioInputs, name, arrangement);
}

AudioBus* AudioEffect::addAudioOutput (const TChar* name, SpeakerArrangement arrangement)
{
    return addMainBus (audioOutputs, name, arrangement);
}

tresult PLUGIN_API AudioEffect::setBusArrangements (SpeakerArrangement* inputs, int32 numIns,
                                                    SpeakerArrangement* outputs, int32 numOuts)
{
    if (numIns < 0 || numOuts < 0 || (numIns > 0 && inputs == nullptr) || (numOuts > 0 && outputs == nullptr))
        return kInvalidArgument;

    const auto tookInputs = takeArrangements (audioInputs, inputs, numIns);
    return takeArrangements (audioOutputs, outputs, numOuts) && tookInputs ? kResultTrue : kResultFalse;
}

tresult PLUGIN_API AudioEffect::getBusArrangement (BusDirection direction, int32 index, SpeakerArrangement& arrangement)
{
    const auto* const buses = getBusList (kAudio, direction);

    if (buses == nullptr || index < 0 || index >= static_cast<int32> (buses->size()))
        return kInvalidArgument;

    arrangement = static_cast<AudioBus*> ((*buses)[static_cast<std::size_t> (index)].get())->getArrangement();
    return kResultTrue;
}

tresult PLUGIN_API AudioEffect::canProcessSampleSize (int32 symbolicSampleSize)
{
    return symbolicSampleSize == kSample32 ? kResultTrue : kResultFalse;
}

tresult PLUGIN_API AudioEffect::setupProcessing (ProcessSetup& setup)
{
    if (canProcessSampleSize (setup.symbolicSampleSize) != kResultTrue)
        return kResultFalse;

    processSetup = setup;
    return kResultTrue;
}

}   // namespace Vst
}   // namespace Steinberg
