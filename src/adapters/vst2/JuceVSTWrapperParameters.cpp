// SPDX-License-Identifier: GPL-3.0-or-later
// Parameters, whose index is their id, and programs.
#include "adapters/vst2/JuceVSTWrapper.h"

namespace
{

// Bytes of a text with its end. Hosts give parameters more room than the eight of the interface.
constexpr std::size_t kParameterTextSize = 24 + 1, kProgramNameSize = 24 + 1;

}   // namespace

void JuceVSTWrapper::setParameter (t_fstEffect* effect, int index, float value)
{
    if (auto* const wrapper = of (effect))
        wrapper->judge().setParameter (index, value);
}

float JuceVSTWrapper::getParameter (t_fstEffect* effect, int index)
{
    auto* const wrapper = of (effect);
    const auto exists = wrapper != nullptr && juce::isPositiveAndBelow (index, effect->numParams);
    return exists ? wrapper->judge().getParameter (index) : 0.0f;
}

JuceVSTWrapper::Answer JuceVSTWrapper::answerParameters (const Call& call)
{
    const auto exists = juce::isPositiveAndBelow (call.index, effect.numParams);

    switch (call.opcode)
    {
        case effGetParamLabel:
            return exists ? give (judge().getParameterLabel (call.index), call.pointer, kParameterTextSize) : 0;
        case effGetParamDisplay:
            return exists ? give (judge().getParameterText (call.index), call.pointer, kParameterTextSize) : 0;
        case effGetParamName:
            return exists ? give (judge().getParameterName (call.index), call.pointer, kParameterTextSize) : 0;
        case effCanBeAutomated:
            return exists && judge().isParameterAutomatable (call.index) ? 1 : 0;
        default:
            return {};
    }
}

JuceVSTWrapper::Answer JuceVSTWrapper::answerPrograms (const Call& call)
{
    const auto isProgram = [this] (t_fstPtrInt index) { return index >= 0 && index < effect.numPrograms; };

    switch (call.opcode)
    {
        case effSetProgram:
            if (isProgram (call.value))
                judge().setCurrentProgram (static_cast<int> (call.value));

            return 0;
        case effGetProgram:
            return judge().getCurrentProgram();
        case effSetProgramName:
            if (const auto* const name = static_cast<const char*> (call.pointer))
                judge().changeProgramName (judge().getCurrentProgram(), juce::String::fromUTF8 (name));

            return 0;
        case effGetProgramName:
            return give (judge().getProgramName (judge().getCurrentProgram()), call.pointer, kProgramNameSize);
        case effGetProgramNameIndexed:
            return isProgram (call.index) ? give (judge().getProgramName (call.index), call.pointer, kProgramNameSize)
                                          : 0;
        default:
            return {};
    }
}

void JuceVSTWrapper::audioProcessorParameterChanged (juce::AudioProcessor*, int id, float value)
{
    callHost (audioMasterAutomate, id, 0, nullptr, value);
}

void JuceVSTWrapper::audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int id)
{
    callHost (audioMasterBeginEdit, id);
}

void JuceVSTWrapper::audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int id)
{
    callHost (audioMasterEndEdit, id);
}
