// SPDX-License-Identifier: GPL-3.0-or-later
#include "LiveDevice.h"

namespace desk
{

int LiveDevice::open (int wantedRate)
{
    constexpr int numOutputs = 2;
    devices.initialise (0, numOutputs, nullptr, true);

    if (! isOpen())
        return wantedRate;

    auto setup = devices.getAudioDeviceSetup();
    setup.sampleRate = wantedRate;
    devices.setAudioDeviceSetup (setup, false);
    return isOpen() ? juce::roundToInt (devices.getCurrentAudioDevice()->getCurrentSampleRate()) : wantedRate;
}

juce::String LiveDevice::describe() const
{
    if (auto* const device = devices.getCurrentAudioDevice())
        return device->getName() + ", " + juce::String (device->getCurrentSampleRate() / 1000.0) + " kHz";

    return "No audio device opens: it plays in silence";
}

}   // namespace desk
