// SPDX-License-Identifier: GPL-3.0-or-later
#include "Recording.h"

#include <limits>
#include <new>

#include <soxr.h>

namespace desk
{
namespace
{

juce::String describeRate (int hertz)
{
    return juce::String (hertz / 1000.0) + " kHz";
}

}   // namespace

void Recording::resample (int newRate)
{
    if (newRate == sampleRate)
        return;

    const auto oldLength = audio.getNumSamples();
    const auto newLength =
        static_cast<int> ((static_cast<juce::int64> (oldLength) * newRate + sampleRate - 1) / sampleRate);

    // Linear phase, and nothing is delayed. Without the roll-off the pass band is flat: its droop, small as it is, would
    // be a difference between the recordings that neither of them has.
    const auto quality = soxr_quality_spec (SOXR_VHQ, SOXR_ROLLOFF_NONE);
    juce::AudioSampleBuffer converted (audio.getNumChannels(), newLength);
    converted.clear();

    for (int channel = 0; channel < audio.getNumChannels(); ++channel)
        if (soxr_oneshot (sampleRate, newRate, 1, audio.getReadPointer (channel), static_cast<size_t> (oldLength),
                          nullptr, converted.getWritePointer (channel), static_cast<size_t> (newLength), nullptr,
                          nullptr, &quality, nullptr) != nullptr)
            throw std::bad_alloc();   // the one thing that can be amiss with sound arguments

    audio = std::move (converted);
    sampleRate = newRate;
}

juce::String Recording::describe() const
{
    const auto channels = fileChannels == 1   ? juce::String ("mono")
                          : fileChannels == 2 ? juce::String ("stereo")
                                              : juce::String (fileChannels) + " channels";
    return name + ", " + describeRate (fileSampleRate) + ", " + channels;
}

juce::String Recording::describeLoss() const
{
    if (breaksOff)
        return name + " breaks off: it does not tell how much is missing";

    return numMissing == 0 ? juce::String()
                           : name + " lacks its last " + juce::String (numMissing) + " samples (" +
                                 juce::String (static_cast<double> (numMissing) / fileSampleRate, 3) + " s)";
}

juce::Result Material::load (const juce::File& fileA, const juce::File& fileB, std::optional<int> sampleRate,
                             Material& result)
{
    Material material;

    if (const auto loaded = Recording::load (fileA, material.a); loaded.failed())
        return loaded;

    if (const auto loaded = Recording::load (fileB, material.b); loaded.failed())
        return loaded;

    const auto rate = sampleRate.value_or (material.a.sampleRate);
    const auto numChannels = std::max (material.a.audio.getNumChannels(), material.b.audio.getNumChannels());

    for (auto* recording : { &material.a, &material.b })
    {
        const auto newLength = recording->getLengthInSeconds() * rate;

        if (newLength > std::numeric_limits<int>::max() / 2.0)
            return juce::Result::fail (recording->name + " is too long");

        recording->resample (rate);

        if (auto& audio = recording->audio; audio.getNumChannels() < numChannels)
        {
            audio.setSize (numChannels, audio.getNumSamples(), true);
            audio.copyFrom (1, 0, audio, 0, 0, audio.getNumSamples());
        }
    }

    result = std::move (material);
    return juce::Result::ok();
}

juce::StringArray Material::getRemarks() const
{
    juce::StringArray remarks;
    const auto remark = [&remarks] (const char* source, const Recording& recording)
    {
        if (recording.fileChannels > Recording::kMaxChannels)
            remarks.add (juce::String (source) + " has " + juce::String (recording.fileChannels) +
                         " channels: the first two are heard");

        if (recording.sampleRate != recording.fileSampleRate)
            remarks.add (juce::String (source) + " is resampled from " + describeRate (recording.fileSampleRate) +
                         " to " + describeRate (recording.sampleRate));
    };
    remark ("A", a);
    remark ("B", b);

    const auto longer = b.getLengthInSeconds() - a.getLengthInSeconds();

    if (std::abs (longer) >= 0.001)
        remarks.add ("B is " + juce::String (std::abs (longer), 3) + " s " +
                     (longer > 0.0 ? "longer than A: the rest is not heard" : "shorter than A: silence follows it"));

    return remarks;
}

juce::StringArray Material::getLosses() const
{
    juce::StringArray losses { a.describeLoss(), b.describeLoss() };
    losses.removeEmptyStrings();
    return losses;
}

}   // namespace desk
