// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/CreatePluginFilter.h"

#include "engine/DuoJudgeProcessor.h"

namespace
{

juce::AudioProcessor::WrapperType toToolkitType (int wrapperType)
{
    switch (wrapperType)
    {
        case OxJuceProcessorBase::typeVst:
            return juce::AudioProcessor::wrapperType_VST;
        case OxJuceProcessorBase::typeVst3:
            return juce::AudioProcessor::wrapperType_VST3;
        case OxJuceProcessorBase::typeAax:
        case OxJuceProcessorBase::typeAudioSuite:
            return juce::AudioProcessor::wrapperType_AAX;
        default:
            return juce::AudioProcessor::wrapperType_Undefined;
    }
}

}   // namespace

std::unique_ptr<DuoJudgeProcessor> createPluginFilter (int wrapperType)
{
    const auto setNextType = &juce::AudioProcessor::setTypeOfNextNewPlugin;
    setNextType (toToolkitType (wrapperType));
    const juce::ScopeGuard clear { [=] { setNextType (juce::AudioProcessor::wrapperType_Undefined); } };
    return std::make_unique<DuoJudgeProcessor> (wrapperType);
}
