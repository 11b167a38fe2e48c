// SPDX-License-Identifier: GPL-3.0-or-later
// Parameters under the host's texts.
#include "adapters/aax/JuceAAX_Processor.h"

#include <charconv>
#include <string_view>

namespace AAXClasses
{
namespace
{

constexpr const char* kBypassId = "MasterBypassID";

}   // namespace

void JuceAAX_Processor::addParameters()
{
    bypass = &AddParameter (std::make_unique<AAX_CParameter<bool>> (kBypassId, "Master Bypass", false,
                                                                    AAX_CLinearTaper<bool> {}, true, 2, false));

    for (int id = 0; id < judge().getNumParameters(); ++id)
        if (judge().isParameterHostVisible (id))
            AddParameter (std::make_unique<AAX_CParameter<float>> (
                std::to_string (id), judge().getParameterName (id).toStdString(), judge().getParameter (id),
                AAX_CLinearTaper<float> { 0.0f, 1.0f }, judge().isParameterAutomatable (id),
                judge().getParameterNumSteps (id), true));
}

int JuceAAX_Processor::numberOf (AAX_CParamID id)
{
    const std::string_view text (id != nullptr ? id : "");
    auto number = kNoParam;
    const auto [end, error] = std::from_chars (text.data(), text.data() + text.size(), number);
    const auto isNumber = error == std::errc() && end == text.data() + text.size();
    return isNumber && juce::isPositiveAndBelow (number, kMaxParams) ? number
                                                                     : kNoParam;   // the rest lasts on the machine
}

AAX_Result JuceAAX_Processor::GetParameterNormalizedValue (AAX_CParamID id, double* value) const
{
    const auto number = numberOf (id);

    if (number == kNoParam || value == nullptr)
        return AAX_CEffectParameters::GetParameterNormalizedValue (id, value);

    *value = judge().getParameter (number);
    return AAX_SUCCESS;
}

AAX_Result JuceAAX_Processor::GetParameterValueString (AAX_CParamID id, char* text, std::int32_t maxLength) const
{
    const auto number = numberOf (id);
    const auto isBypass = bypass != nullptr && FindParameter (id) == bypass;

    if ((number == kNoParam && ! isBypass) || text == nullptr || maxLength < 0)
        return AAX_ERROR_INVALID_ID;

    juce::String full;

    if (! isBypass)
        full = judge().getParameterText (number);
    else if (bypass->GetNormalizedValue() == 0.0)
        full = "Off";
    else
        full = maxLength < 8 ? "Byp" : "Bypassed";

    full.copyToUTF8 (text, static_cast<std::size_t> (maxLength) + 1);
    return AAX_SUCCESS;
}

AAX_Result JuceAAX_Processor::UpdateParameterNormalizedValue (AAX_CParamID id, double value)
{
    const auto result = AAX_CEffectParameters::UpdateParameterNormalizedValue (id, value);

    if (const auto number = numberOf (id); number != kNoParam)
        judge().setParameter (number, static_cast<float> (value));

    return result;
}

void JuceAAX_Processor::audioProcessorParameterChanged (juce::AudioProcessor*, int id, float value)
{
    SetParameterNormalizedValue (std::to_string (id).c_str(), value);
}

void JuceAAX_Processor::audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int id)
{
    TouchParameter (std::to_string (id).c_str());
}

void JuceAAX_Processor::audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int id)
{
    ReleaseParameter (std::to_string (id).c_str());
}

}   // namespace AAXClasses
