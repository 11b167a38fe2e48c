// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PodSender.h"
#include "engine/CreatePluginFilter.h"
#include "engine/DuoJudgeProcessor.h"
#include "platform/KnownFolders.h"

#include <functional>
#include <optional>

/** One listener and, when asked for, one sender in a host that plays: the real processor and the real manager. */
class EngineRig : private juce::AudioPlayHead
{
public:
    using Signal = std::function<float (int channel, std::int64_t sample)>;

    explicit EngineRig (double rate = 44100.0, int block = 64, int channelsOfTrack = 2);
    ~EngineRig() override;

    /** Puts a sender before the listener in every cycle and links the listener to it. */
    EngineRig& addPod (int channelsOfPod = 2);
    EngineRig& play (Signal onTrack, Signal inPod);
    EngineRig& set (int paramId, float value);

    /** Presses and releases a button. */
    EngineRig& click (int paramId);

    /** Plays samples in whole blocks. @returns what left since, `samples` long or up to a block longer */
    juce::AudioSampleBuffer run (int samples);

    /** Plays one block of the given length. */
    juce::AudioSampleBuffer cycle (int length);

    /** @returns how many samples leave until the rest of the following half second equals `target`, 4096 late. */
    int samplesUntil (const Signal& target);

    DuoJudgeProcessor& processor() { return *listener; }
    PodSender& sender() { return *pod; }
    void removePod() { pod.reset(); }
    std::int64_t position() const { return now; }

    /** What leaves at an output sample when only this signal is heard. */
    static float late (const Signal& signal, int channel, std::int64_t sample);

private:
    juce::Optional<PositionInfo> getPosition() const override;

    platform::ScopedCommonProgramFilesFolder managerFolder;
    std::unique_ptr<DuoJudgeProcessor> listener;
    std::unique_ptr<PodSender> pod;
    Signal track, podSignal;
    double sampleRate;
    int blockSize, trackChannels, podChannels = 0;
    std::int64_t now = 0;
    juce::MidiBuffer midi;
};

/** Repeatable noise between -1 and 1, other for every seed and channel. */
EngineRig::Signal noise (std::uint32_t seed);

/** A rising sine sweep over ten seconds at 44100 Hz, the channels in quadrature. */
EngineRig::Signal sweep();
