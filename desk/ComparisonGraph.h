// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Recording.h"

#include "platform/Relaxed.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace desk
{

/** What a host can move of the comparator. */
enum class Parameter
{
    toggleAB,
    toggleXY,
    test,
    choose,
    endTest,
    reveal,
    resume
};

/** The session of a comparison: recording A on a track with the comparator, recording B on one with the sender.

    Both tracks get the same blocks at the same timeline positions. The plug-ins are the built ones, met as any host meets
    them: all others in the desk reach the comparator's parameters and window through this class. */
class ComparisonGraph
{
public:
    static constexpr int kBlockSize = 512;   // samples at most

    /** Loads both plug-ins and builds the tracks, which are linked when this returns [message thread].
        @param material must outlive the graph
        @param plugins the folder that holds both bundles
        @returns in one line why it cannot, or success */
    static juce::Result create (const Material& material, const juce::File& plugins,
                                std::unique_ptr<ComparisonGraph>& result);
    ~ComparisonGraph();

    /** Where hosts find the plug-ins of this user. */
    static juce::File getUserPluginFolder();

    /** Feeds the next stretch of both recordings and leaves in `output` what the comparator lets out, `getLatency()`
        samples behind [audio thread]. Outside the recordings is silence.
        @param output `getNumChannels()` channels, 1 to kBlockSize samples
        @param position the timeline's at the first sample fed, or none while the transport stands */
    void process (juce::AudioSampleBuffer& output, std::optional<juce::int64> position);

    /** Moves a parameter of the comparator; the next block knows it [message thread]. */
    void writeParameter (Parameter parameter, float value);

    /** Presses a button of the comparator and lets it go [message thread]. While another thread processes, the button stays
        down for a block, so that no block comes to see it down when it is up. */
    void press (Parameter button);

    /** Sets the level at which B is fed, from the next block fed on [message thread]. */
    void setGain (float newDecibels) noexcept { decibels = newDecibels; }

    /** @returns the comparator's own window, which the caller deletes before the graph, or null if it has none. */
    juce::AudioProcessorEditor* createEditor() { return comparator->createEditorIfNeeded(); }

    float readParameter (Parameter parameter) const;

    /** Waits until what the comparator told in its blocks can be read: the toolkit's host takes it in by a timer of 60 Hz
        [message thread, where no loop runs]. */
    static void takeInChanges();

    /** For those who want to hear of its changes, from whatever thread makes them. */
    juce::AudioProcessorParameter& getParameter (Parameter parameter);

    /** @returns the samples processed until now [any thread]. */
    juce::int64 getNumProcessed() const noexcept { return numProcessed; }

    int getLatency() const { return comparator->getLatencySamples(); }
    int getNumChannels() const { return material.a.audio.getNumChannels(); }
    const Material& getMaterial() const { return material; }

    ComparisonGraph (const ComparisonGraph&) = delete;
    ComparisonGraph& operator= (const ComparisonGraph&) = delete;

private:
    class PlayHead;
    using Plugin = std::unique_ptr<juce::AudioPluginInstance>;

    ComparisonGraph (const Material& materialToPlay, Plugin loadedSender, Plugin loadedComparator);

    juce::Result findParameters();
    juce::Result prepare (juce::AudioPluginInstance& plugin);
    juce::Result checkLink();
    void outlastBlock() const;

    const Material& material;
    std::unique_ptr<PlayHead> playHead;
    Plugin sender, comparator;
    std::vector<juce::AudioProcessorParameter*> parameters;   // in the order of `Parameter`
    juce::AudioSampleBuffer senderBlock;                      // [audio thread]
    juce::MidiBuffer noMidi;
    Relaxed<float> decibels = 0.0f;   // of B; written by the message thread

    // Written by the thread that processes.
    Relaxed<juce::int64> numProcessed = 0;
    Relaxed<int> numBlocks = 0;
    Relaxed<juce::Thread::ThreadID> processingThread = nullptr;
};

}   // namespace desk
