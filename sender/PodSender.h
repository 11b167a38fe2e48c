// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/CDelayFilter.h"
#include "pod/IPod.h"

#include <memory>
#include <optional>
#include <vector>

#include <juce_audio_basics/juce_audio_basics.h>

/** Feeds a track into a pod of its own: the engine of the sender.

    The pod gets each block at once; the track's own signal leaves `baylink::kMatchedLatency` samples late, so that a host
    that compensates latency brings listener and sender the same material in the same cycle. */
class PodSender : public baylink::IPod
{
public:
    /** Makes the pod known to the manager under `podName` [message thread]. Without a manager the track still passes. */
    explicit PodSender (const juce::String& podName);
    ~PodSender() override;

    bool isConnected() const noexcept { return manager != nullptr; }
    void setName (const juce::String& podName);

    /** Lets links of saved sessions that name `savedId` mean this pod, which keeps its name [any thread but the audio
        thread]. Listeners that were waiting for it are told before this returns. */
    void restore (baylink::PodId savedId);

    /** @returns how many pods are linked to this one now [any thread but the audio thread]. */
    int countListeners();

    /** Makes room for blocks of 1 to `baylink::kMaxPodChannels` channels [not while audio runs]. */
    void prepare (int numChannels, int blockSize);

    /** Feeds the block and replaces it by the delayed track, bit for bit [audio thread].
        @param timeInSamples the timeline position of the block's first sample, or none while the transport stands */
    void process (juce::AudioSampleBuffer& block, std::optional<std::int64_t> timeInSamples);

    // baylink::IPod
    const char* getPodName() override { return name.toRawUTF8(); }
    std::int32_t getTypeKey() override { return baylink::kSenderTypeKey; }
    int getPodKind() override { return 1; }
    void onPodLinked (baylink::PodId, baylink::PodId) override {}

private:
    juce::String name;
    std::vector<std::unique_ptr<CDelayFilter<float>>> delays;   // one a channel
};
