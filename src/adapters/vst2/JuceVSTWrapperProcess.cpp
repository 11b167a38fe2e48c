// SPDX-License-Identifier: GPL-3.0-or-later
// Start, stop and the blocks between them.
#include "adapters/vst2/JuceVSTWrapper.h"

namespace
{

constexpr int kMostSamples = 1 << 16;   // that are prepared for; a longer block is taken in pieces

/** By the host's number of a frame rate. Film counts as 24 frames a second. */
juce::Optional<juce::AudioPlayHead::FrameRate> toFrameRate (int number)
{
    using Rate = juce::AudioPlayHead::FrameRate;

    switch (number)
    {
        case 0:
        case 6:
        case 7:
            return Rate().withBaseRate (24);
        case 1:
            return Rate().withBaseRate (25);
        case 2:
            return Rate().withBaseRate (30).withPullDown();
        case 3:
            return Rate().withBaseRate (30);
        case 4:
            return Rate().withBaseRate (30).withPullDown().withDrop();
        case 5:
            return Rate().withBaseRate (30).withDrop();
        case 10:
            return Rate().withBaseRate (24).withPullDown();
        case 11:
            return Rate().withBaseRate (25).withPullDown();
        case 12:
            return Rate().withBaseRate (60).withPullDown();
        case 13:
            return Rate().withBaseRate (60);
        default:
            return {};
    }
}

}   // namespace

JuceVSTWrapper::Answer JuceVSTWrapper::answerProcess (const Call& call)
{
    switch (call.opcode)
    {
        case effSetSampleRate:
            if (call.opt > 0.0f)
                sampleRate = call.opt;

            return 0;
        case effSetBlockSize:
            if (call.value > 0)
                blockSize = static_cast<int> (std::min<t_fstPtrInt> (call.value, kMostSamples));

            return 0;
        case effMainsChanged:
            call.value != 0 ? resume() : suspend();
            return 0;
        case vst2::effectSetBypass:
            processor->bypass = call.value != 0;
            return 1;
        case vst2::effectGetTailSize:
            return static_cast<int> (judge().getTailLengthSeconds() * sampleRate);
        case effSetTotalSampleToProcess:
            return call.value;
        case effSetProcessPrecision:
            return call.value == kVstProcessPrecision32 && ! processing ? 1 : 0;
        default:
            return {};
    }
}

void JuceVSTWrapper::resume()
{
    judge().setNonRealtime (isHostOffline());
    scratch.setSize (effect.numOutputs, blockSize);
    processor->configure (sampleRate, blockSize, input, output);
    effect.initialDelay = judge().getLatencySamples();
    firstBlock = true;
    processing = true;
}

void JuceVSTWrapper::suspend()
{
    processing = false;
    judge().releaseResources();
}

bool JuceVSTWrapper::isHostOffline()
{
    return callHost (audioMasterGetCurrentProcessLevel) == kVstProcessLevelOffline;
}

void JuceVSTWrapper::processReplacing (t_fstEffect* effect, float** inputs, float** outputs, int numSamples)
{
    auto* const wrapper = of (effect);

    if (wrapper != nullptr && inputs != nullptr && outputs != nullptr && numSamples > 0)
        wrapper->process (inputs, outputs, numSamples);
}

void JuceVSTWrapper::process (float** inputs, float** outputs, int numSamples)
{
    if (firstBlock)
    {
        if (! processing)
            resume();   // some hosts leave it out

        firstBlock = false;
        judge().setNonRealtime (isHostOffline());
    }

    readTimeline();
    const auto numChannels = std::min (input.size(), scratch.getNumChannels());

    // Hosts give the same memory to several channels, and none to one that is not connected.
    for (int start = 0, length = 0; start < numSamples; start += length)
    {
        length = std::min (numSamples - start, scratch.getNumSamples());

        for (int channel = 0; channel < numChannels; ++channel)
            if (inputs[channel] != nullptr)
                scratch.copyFrom (channel, 0, inputs[channel] + start, length);
            else
                scratch.clear (channel, 0, length);

        processor->process (scratch.getArrayOfReadPointers(), scratch.getArrayOfWritePointers(), numChannels, length);

        for (int channel = 0; channel < numChannels; ++channel)
            if (outputs[channel] != nullptr)
                std::copy_n (scratch.getReadPointer (channel), length, outputs[channel] + start);

        if (position.hasValue())
            position->setTimeInSamples (*position->getTimeInSamples() + length);
    }
}

void JuceVSTWrapper::readTimeline()
{
    constexpr int wanted = kVstNanosValid | kVstPpqPosValid | kVstTempoValid | kVstBarsValid | kVstCyclePosValid |
                           kVstTimeSigValid | kVstSmpteValid | kVstClockValid;
    const auto* const time = reinterpret_cast<const t_fstTimeInfo*> (callHost (audioMasterGetTime, 0, wanted));
    position.reset();

    if (time == nullptr || ! (time->sampleRate > 0.0))
        return;

    const auto has = [time] (int flag) { return (time->flags & flag) != 0; };
    auto& now = position.emplace();
    now.setTimeInSamples (std::llround (time->samplePos));
    now.setTimeInSeconds (time->samplePos / time->sampleRate);
    now.setIsRecording (has (kVstTransportRecording));
    now.setIsPlaying (has (kVstTransportRecording | kVstTransportPlaying));
    now.setIsLooping (has (kVstTransportCycleActive));

    if (has (kVstTempoValid))
        now.setBpm (time->tempo);

    if (has (kVstTimeSigValid))
        now.setTimeSignature (TimeSignature { time->timeSigNumerator, time->timeSigDenominator });

    if (has (kVstPpqPosValid))
        now.setPpqPosition (time->ppqPos);

    if (has (kVstBarsValid))
        now.setPpqPositionOfLastBarStart (time->barStartPos);

    if (has (kVstCyclePosValid))
        now.setLoopPoints (LoopPoints { time->cycleStartPos, time->cycleEndPos });

    if (has (kVstNanosValid))
        now.setHostTimeNs (static_cast<juce::uint64> (time->nanoSeconds));

    if (const auto rate = has (kVstSmpteValid) ? toFrameRate (time->smpteFrameRate) : juce::Optional<FrameRate>();
        rate.hasValue())
    {
        constexpr double subframes = 80.0;
        now.setFrameRate (rate);
        now.setEditOriginTime (time->smpteOffset / (subframes * rate->getEffectiveRate()));
    }
}
