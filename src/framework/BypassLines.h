// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/CDelayFilter.h"

#include <juce_audio_basics/juce_audio_basics.h>

/** Keeps a bypassed processor in time: takes in what comes, block by block, and gives it back its latency late.

    A channel beyond those that were made passes as it is. */
class BypassLines
{
public:
    /** Makes what lacks for this many channels; lines never go [while no audio runs]. */
    void make (int numChannels);

    /** Takes a block in that is not bypassed: the next one may be [audio thread]. */
    void push (const juce::AudioSampleBuffer& block) noexcept;

    /** Replaces a block by what came `latency` samples before it, or as many as a line holds [audio thread]. */
    void process (juce::AudioSampleBuffer& block, int latency) noexcept;

private:
    std::vector<std::unique_ptr<CDelayFilter<float>>> lines;   // one a channel
};
