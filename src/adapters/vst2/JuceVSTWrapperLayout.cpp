// SPDX-License-Identifier: GPL-3.0-or-later
// Channels and their speakers: one in and one out, or two and two.
#include "adapters/vst2/JuceVSTWrapper.h"
#include "framework/HostType.h"

namespace
{

using Set = juce::AudioChannelSet;

struct Row
{
    int type;
    Set layout;
};

/** The host's arrangements of one and two channels. */
const std::array<Row, 6>& getArrangements()
{
    static const std::array<Row, 6> rows {
        { { kSpeakerArrMono, Set::mono() },
          { kSpeakerArrStereo, Set::stereo() },
          { vst2::kStereoSurround, Set::channelSetWithChannels ({ Set::leftSurround, Set::rightSurround }) },
          { vst2::kStereoCentre, Set::channelSetWithChannels ({ Set::leftCentre, Set::rightCentre }) },
          { vst2::kStereoSide, Set::channelSetWithChannels ({ Set::leftSurroundRear, Set::rightSurroundRear }) },
          { vst2::kCentreAndLfe, Set::channelSetWithChannels ({ Set::centre, Set::LFE }) } }
    };
    return rows;
}

/** A host that leaves one side out keeps it as it is. */
Set toLayout (const t_fstSpeakerArrangement* arrangement, const Set& current)
{
    if (arrangement == nullptr)
        return current;

    for (const auto& row : getArrangements())
        if (row.type == arrangement->type)
            return row.layout.size() == arrangement->numChannels ? row.layout : Set();

    const auto numChannels = arrangement->numChannels;
    return numChannels == 1 || numChannels == 2 ? AdaptedProcessor::layoutOf (numChannels) : Set();
}

/** @returns the layout as an arrangement of the host's. */
vst2::SpeakerArrangement toArrangement (const Set& layout)
{
    vst2::SpeakerArrangement result;
    result.type = kSpeakerArrUserDefined;
    result.numChannels = layout.size();

    for (const auto& row : getArrangements())
        if (row.layout == layout)
            result.type = row.type;

    if (result.type == kSpeakerArrStereo)
    {
        result.speakers[0].type = kSpeakerL;
        result.speakers[1].type = kSpeakerR;
    }

    return result;
}

}   // namespace

JuceVSTWrapper::Answer JuceVSTWrapper::answerLayout (const Call& call)
{
    switch (call.opcode)
    {
        case effGetInputProperties:
            return describePin (true, call.index, static_cast<t_fstPinProperties*> (call.pointer));
        case effGetOutputProperties:
            return describePin (false, call.index, static_cast<t_fstPinProperties*> (call.pointer));
        case effSetSpeakerArrangement:
            return setLayout (reinterpret_cast<const t_fstSpeakerArrangement*> (call.value),
                              static_cast<const t_fstSpeakerArrangement*> (call.pointer))
                       ? 1
                       : 0;
        case effGetSpeakerArrangement:
        {
            auto** const inputPlace = reinterpret_cast<vst2::SpeakerArrangement**> (call.value);
            auto** const outputPlace = static_cast<vst2::SpeakerArrangement**> (call.pointer);

            if (inputPlace == nullptr || outputPlace == nullptr)
                return 0;

            told[0] = toArrangement (input);
            told[1] = toArrangement (output);
            *inputPlace = &told[0];
            *outputPlace = &told[1];
            return 1;
        }
        default:
            return {};
    }
}

t_fstPtrInt JuceVSTWrapper::describePin (bool isInput, int index, t_fstPinProperties* pin)
{
    const auto& layout = isInput ? input : output;

    if (pin == nullptr || ! juce::isPositiveAndBelow (index, layout.size()))
        return 0;

    const auto name = isInput ? judge().getInputChannelName (index) : judge().getOutputChannelName (index);
    give (name, pin->label, sizeof (pin->label));
    give (name, pin->shortLabel, sizeof (pin->shortLabel));
    pin->flags = vst2::pinIsActive | vst2::pinUsesArrangement | (layout.size() > 1 ? vst2::pinIsStereo : 0);
    pin->arrangementType = toArrangement (layout).type;
    return 1;
}

bool JuceVSTWrapper::setLayout (const t_fstSpeakerArrangement* newInput, const t_fstSpeakerArrangement* newOutput)
{
    if (newInput == nullptr && newOutput == nullptr)
        return false;

    const auto type = getHostType();

    // These want a running effect to take it over.
    if (! processing && (type == hostType::audition || type == hostType::premiere))
        resume();

    juce::AudioProcessor::BusesLayout layout;
    layout.inputBuses.add (toLayout (newInput, input));
    layout.outputBuses.add (toLayout (newOutput, output));
    const auto numChannels = layout.getMainInputChannels();

    if (numChannels < 1 || numChannels > effect.numInputs || numChannels != layout.getMainOutputChannels() ||
        ! judge().setBusesLayout (layout))
        return false;

    input = layout.getMainInputChannelSet();
    output = layout.getMainOutputChannelSet();
    return true;
}
