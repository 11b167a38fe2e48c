// SPDX-License-Identifier: GPL-3.0-or-later
// The host's transport: the position of the block and the frame rate.
#include "framework/OxJuceProcessorBase.h"

namespace
{

constexpr int kNumFramerates = 13;
constexpr int kFallbackFramerate = 6;   // 30 fps

int codeOfHostFramerate (juce::AudioPlayHead::FrameRateType type, int otherwise)
{
    switch (type)
    {
        case juce::AudioPlayHead::fps23976:
            return 0;
        case juce::AudioPlayHead::fps24:
            return 1;
        case juce::AudioPlayHead::fps25:
            return 2;
        case juce::AudioPlayHead::fps2997drop:
            return 3;
        case juce::AudioPlayHead::fps2997:
            return 4;
        case juce::AudioPlayHead::fps30drop:
            return 5;
        case juce::AudioPlayHead::fps30:
            return 6;
        default:
            return otherwise;
    }
}

}   // namespace

void OxJuceProcessorBase::updateTransport()
{
    auto* const host = getPlayHead();

    const auto now = host != nullptr ? host->getPosition() : juce::Optional<juce::AudioPlayHead::PositionInfo>();
    hostPlays = now.hasValue() && now->getIsPlaying();

    if (! hostPlays)
        return;

    blockStartSample = now->getTimeInSamples().orFallback (blockStartSample);

    const auto current = getFramerateCode();
    const auto hostRate = now->getFrameRate().orFallback (juce::AudioPlayHead::FrameRate());
    const auto code = codeOfHostFramerate (hostRate.getType(), current);

    if (code != current)
        setFramerateCode (code);
}

int OxJuceProcessorBase::getFramerateCode()
{
    const auto code = getParamCode (getFramerateParam());

    if (code < kNumFramerates)
        return code;

    const auto stored = getParamCode (getFramerateDefaultParam());
    const auto repaired = stored < kNumFramerates ? stored : kFallbackFramerate;
    setFramerateCode (repaired);
    return repaired;
}

void OxJuceProcessorBase::setFramerateCode (int code)
{
    writeInSound (getFramerateParam(), thousandths::fromCode (code), ParamOrigin::host);
}
