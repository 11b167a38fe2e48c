// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PodSender.h"
#include "platform/Relaxed.h"

#include <juce_audio_processors/juce_audio_processors.h>

/** The sender as a plug-in: a mono or stereo track that listeners on other tracks can hear.

    The pod bears the name that the user typed, else that of the host's track. Bypassing changes nothing: the track passes
    as it is anyway, its delay must not jump, and a comparison that others are listening to must not break off. */
class BayLinkSendProcessor final : public juce::AudioProcessor
{
public:
    BayLinkSendProcessor();

    // Names [any thread but the audio thread]

    /** Names the pod; an empty name gives it back the track's. */
    void setTypedName (const juce::String& newName);

    /** @returns an empty name when the user typed none */
    juce::String getTypedName() const;

    /** @returns what the pod is called while no name is typed */
    juce::String getTrackName() const;

    // What the editor shows [message thread]
    bool isConnected() const noexcept { return pod.isConnected(); }
    int countListeners() { return pod.countListeners(); }

    /** @returns the largest sample, linear, since the last call */
    float takePeak() noexcept;

    // juce::AudioProcessor
    const juce::String getName() const override { return "BayLinkSend"; }
    bool isBusesLayoutSupported (const BusesLayout& layout) const override;
    void prepareToPlay (double hertz, int largestBlock) override;
    void releaseResources() override {}
    using AudioProcessor::processBlock;
    using AudioProcessor::processBlockBypassed;
    void processBlock (juce::AudioSampleBuffer& block, juce::MidiBuffer&) override;
    void processBlockBypassed (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi) override;
    double getTailLengthSeconds() const override { return 0.0; }
    bool acceptsMidi() const override { return false; }
    bool producesMidi() const override { return false; }

    /** The host names the track [any thread but the audio thread]. Without a name in `properties` the former one stays. */
    void updateTrackProperties (const TrackProperties& properties) override;

    bool hasEditor() const override { return true; }
    juce::AudioProcessorEditor* createEditor() override;

    int getNumPrograms() override { return 1; }
    int getCurrentProgram() override { return 0; }
    void setCurrentProgram (int) override {}
    const juce::String getProgramName (int) override { return "Default"; }
    void changeProgramName (int, const juce::String&) override {}

    void getStateInformation (juce::MemoryBlock& state) override;

    /** Takes up names and links of a saved session [any thread]. Bytes that are no state of a sender change nothing. */
    void setStateInformation (const void* data, int size) override;

private:
    std::optional<std::int64_t> findPosition() const;
    void namePod();

    juce::CriticalSection nameLock;      // guards the names, the saved id and the pod's name
    juce::String typedName, trackName;   // empty for none
    baylink::PodId savedId;              // the id in the session, kept for the next save while there is no manager
    PodSender pod;
    Relaxed<float> peak { 0.0f };   // raised by the audio thread, taken by the editor
};
