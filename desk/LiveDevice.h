// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_audio_devices/juce_audio_devices.h>

namespace desk
{

/** The machine's default audio output, if there is one [message thread]. */
class LiveDevice
{
public:
    ~LiveDevice() { devices.closeAudioDevice(); }

    /** Opens the output at `wantedRate` hertz, or at what it offers instead.
        @returns the rate at which it runs; without an output, the one that was wanted */
    int open (int wantedRate);

    bool isOpen() const { return devices.getCurrentAudioDevice() != nullptr; }

    /** What the user should know of the output, in one line. */
    juce::String describe() const;

    void start (juce::AudioIODeviceCallback& callback) { devices.addAudioCallback (&callback); }
    void stop (juce::AudioIODeviceCallback& callback) { devices.removeAudioCallback (&callback); }

private:
    juce::AudioDeviceManager devices;
};

}   // namespace desk
