// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodManager.h"

#include <cmath>
#include <cstring>

namespace baylink
{

PodInfo PodManager::getPodInfo (PodId id)
{
    const auto* const slot = find (id);

    if (slot == nullptr)
        return {};

    auto info = slot->info.read();
    const auto word = slot->idAndGain.load (std::memory_order_acquire);

    if (PodSlot::idOf (word) != id)
        return {};

    const auto bits = static_cast<std::uint32_t> (word);
    std::memcpy (&info.gain, &bits, sizeof (bits));
    return info;
}

void PodManager::setPodGain (PodId podId, float gain)
{
    auto* const slot = find (podId);

    if (slot == nullptr || ! std::isfinite (gain))
        return;

    std::uint32_t bits;
    std::memcpy (&bits, &gain, sizeof (bits));
    auto word = slot->idAndGain.load (std::memory_order_relaxed);

    // Another thread's gain may come first; another pod's may not be touched.
    while (PodSlot::idOf (word) == podId)
        if (slot->idAndGain.compare_exchange_weak (word, (word >> 32) << 32 | bits))
            return;
}

void PodManager::setPlaying (PodId id, bool isPlaying)
{
    if (auto* const slot = find (id))
        slot->playing = isPlaying;
}

void PodManager::writeAudio (PodId id, const float* const* channels, int numSamples)
{
    writeBlock (id, channels, numSamples, nullptr);
}

void PodManager::writeAudioAt (PodId id, const float* const* channels, int numSamples, std::int64_t timeInSamples)
{
    writeBlock (id, channels, numSamples, &timeInSamples);
}

void PodManager::writeBlock (PodId id, const float* const* channels, int numSamples, const std::int64_t* label) noexcept
{
    auto* const slot = find (id);

    if (slot == nullptr || channels == nullptr || numSamples <= 0)
        return;

    auto* const stream = slot->stream.load();

    if (stream == nullptr)
        return;

    const PodStream::Writing writing (*stream);

    if (slot->stream.load() == stream && slot->id() == id)
        stream->write (channels, numSamples, label);
}

void PodManager::readAudio (PodId ownId, float* const* channels, int numSamples, PodId podId)
{
    readBlock (ownId, channels, podId, { numSamples });
}

void PodManager::readAudioAt (PodId ownId, float* const* channels, int numSamples, PodId podId,
                              std::int64_t timeInSamples)
{
    readBlock (ownId, channels, podId, { numSamples, true, timeInSamples });
}

void PodManager::readBlock (PodId ownId, float* const* channels, PodId podId,
                            const StreamMatcher::Block& block) noexcept
{
    const auto* const own = find (ownId);
    const auto* const pod = find (podId);

    if (own == nullptr || pod == nullptr || channels == nullptr || block.length <= 0)
        return;

    auto* const links = own->links.load (std::memory_order_acquire);
    const auto* const stream = pod->stream.load (std::memory_order_acquire);

    if (links == nullptr || stream == nullptr)
        return;

    auto playedBlock = block;
    playedBlock.playing = own->playing;

    for (auto& link : *links)
        if (link.podId() == podId)
            return link.read (*stream, channels, playedBlock);
}

}   // namespace baylink
