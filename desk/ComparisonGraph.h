// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Recording.h"

#include "PodSender.h"
#include "engine/DuoJudgeProcessor.h"

namespace desk
{

/** The session of a comparison: recording A on a track with the comparator, recording B on one with the sender.

    Both tracks get the same blocks at the same timeline positions. The one place of the desk that knows what stands on the
    tracks: all others meet the comparator's parameters, votes and window through it. */
class ComparisonGraph
{
public:
    static constexpr int kBlockSize = 512;   // samples at most

    /** Builds both tracks and links them [message thread]. `material` must outlive the graph. */
    explicit ComparisonGraph (const Material& material);
    ~ComparisonGraph();

    /** Feeds the next stretch of both recordings and leaves in `output` what the comparator lets out, `getLatency()`
        samples behind [audio thread]. Outside the recordings is silence.
        @param output `getNumChannels()` channels, 1 to kBlockSize samples
        @param position the timeline's at the first sample fed, or none while the transport stands */
    void process (juce::AudioSampleBuffer& output, std::optional<juce::int64> position);

    /** Writes a parameter of the comparator as its window would [message thread]. */
    void writeParameter (duoJudge::ParamId id, float value);

    /** Sets the selection to a toss of the comparator's coin [message thread]. */
    void drawSource();

    /** Lets the comparator follow its parameters and the pods now, without waiting for its timer [message thread]. */
    void runTimers();

    /** @returns the comparator's own window, which the caller deletes before the graph, or null if it has none. */
    juce::AudioProcessorEditor* createEditor();

    float readParameter (duoJudge::ParamId id) const;
    VoteStatistics getVotes() const;
    bool isVoteFading() const;

    /** Whether a pod manager was found, and whether B's pod is the comparator's source B. */
    bool hasManager() const { return sender.isConnected(); }
    bool isLinked() const;

    int getLatency() const;
    int getNumChannels() const { return material.a.audio.getNumChannels(); }
    const Material& getMaterial() const { return material; }

    ComparisonGraph (const ComparisonGraph&) = delete;
    ComparisonGraph& operator= (const ComparisonGraph&) = delete;

private:
    class PlayHead;

    const Material& material;
    std::unique_ptr<PlayHead> playHead;
    PodSender sender;
    std::unique_ptr<DuoJudgeProcessor> comparator;
    juce::AudioSampleBuffer senderBlock;   // [audio thread]
    juce::MidiBuffer noMidi;
};

}   // namespace desk
