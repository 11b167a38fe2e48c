// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodSender.h"

#include <algorithm>
#include <array>

namespace
{

constexpr int kDelayCapacity = 65536;   // samples: the room beyond the delay is what one run may hold

}   // namespace

PodSender::PodSender (const juce::String& podName) : name (podName)
{
    connect (2);
}

PodSender::~PodSender()
{
    if (manager != nullptr)
        manager->disconnect (id);
}

void PodSender::setName (const juce::String& podName)
{
    name = podName;

    if (manager != nullptr)
        manager->setPodName (id, name.toRawUTF8());
}

void PodSender::restore (baylink::PodId savedId)
{
    if (manager != nullptr && savedId != baylink::kNoPod)
        manager->restorePod (this, savedId, "", 0, 0, nullptr);
}

int PodSender::countListeners()
{
    if (manager == nullptr)
        return 0;

    using PodIdList = std::array<baylink::PodId, baylink::kMaxPods>;
    PodIdList pods, linked;
    const auto numPods = manager->getPodIds (pods.data());
    const auto hearsThis = [&] (baylink::PodId pod)
    {
        const auto numLinked = manager->getLinkedPods (linked.data(), pod);
        return std::find (linked.begin(), linked.begin() + numLinked, id) != linked.begin() + numLinked;
    };
    return static_cast<int> (std::count_if (pods.begin(), pods.begin() + numPods, hearsThis));
}

void PodSender::prepare (int numChannels, int blockSize)
{
    delays.clear();

    for (int channel = 0; channel < numChannels; ++channel)
    {
        delays.push_back (std::make_unique<CDelayFilter<float>> (kDelayCapacity));
        delays.back()->setDelay (baylink::kMatchedLatency);
    }

    if (manager != nullptr)
    {
        manager->setBlockSize (id, blockSize);
        manager->openStream (id, numChannels);
    }
}

void PodSender::process (juce::AudioSampleBuffer& block, std::optional<std::int64_t> timeInSamples)
{
    const auto numChannels = static_cast<int> (delays.size());

    if (block.getNumChannels() < numChannels)
        return;

    if (manager != nullptr && timeInSamples.has_value())
        manager->writeAudioAt (id, block.getArrayOfReadPointers(), block.getNumSamples(), *timeInSamples);
    else if (manager != nullptr)
        manager->writeAudio (id, block.getArrayOfReadPointers(), block.getNumSamples());

    for (int channel = 0; channel < numChannels; ++channel)
        delays[static_cast<std::size_t> (channel)]->process (block.getWritePointer (channel), block.getNumSamples());
}
