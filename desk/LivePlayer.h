// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ComparisonGraph.h"
#include "LiveDevice.h"

namespace desk
{

/** Plays a comparison in a loop through the audio device, or in silence where none opens.

    The tracks run while the transport stands too, on silence, so that fades end and the delay lines empty. Starting and
    stopping are ramped. */
class LivePlayer : public juce::AudioIODeviceCallback, private juce::Timer
{
public:
    LivePlayer (ComparisonGraph& comparison, LiveDevice& audioDevice);
    ~LivePlayer() override;

    void setPlaying (bool shouldPlay) noexcept { playing = shouldPlay; }
    void seek (juce::int64 newPosition) noexcept { requestedPosition = newPosition; }

    bool isPlaying() const noexcept { return playing; }

    /** The sample of A that is heard now, with the comparator's latency taken off. After a start or a seek it is the
        place of that until it is heard. */
    juce::int64 getPosition() const noexcept { return heardPosition; }

    /** Takes note that a device runs from now on. At another rate than the material's the transport stands. */
    void deviceStarts (double hertz) noexcept;

    /** Whether nothing is heard because of the device's rate [any thread]. */
    bool isOffRate() const noexcept { return offRate; }

    // juce::AudioIODeviceCallback
    void audioDeviceIOCallbackWithContext (const float* const* inputs, int numInputs, float* const* outputs,
                                           int numOutputs, int numSamples,
                                           const juce::AudioIODeviceCallbackContext& context) override;
    void audioDeviceAboutToStart (juce::AudioIODevice* audioDevice) override;
    void audioDeviceStopped() override;

private:
    static constexpr juce::int64 kNoRequest = -1;

    void timerCallback() override;

    int playNext (int maxSamples);
    void followTransport();
    juce::int64 wrap (juce::int64 position) const noexcept;

    ComparisonGraph& graph;
    LiveDevice& device;
    const juce::int64 length, latency;   // samples
    Relaxed<bool> playing = false;       // written by the message thread
    Relaxed<bool> deviceRuns = false;    // the device calls; else the timer does
    Relaxed<bool> offRate = false;       // written where the device starts
    Relaxed<juce::int64> heardPosition = 0;
    std::atomic<juce::int64> requestedPosition { kNoRequest };   // taken by the thread that plays

    // Of the thread that plays.
    juce::AudioSampleBuffer block;
    juce::SmoothedValue<float> level { 0.0f };
    juce::int64 position = 0;   // of the next block fed
    juce::int64 numFed = 0;     // samples, since the last start or seek
    bool wasPlaying = false;

    // Of the timer, which plays in silence.
    double silentSince = 0.0;   // milliseconds, of its last turn
};

}   // namespace desk
