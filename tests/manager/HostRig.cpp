// SPDX-License-Identifier: GPL-3.0-or-later
#include "HostRig.h"

#include <algorithm>
#include <sstream>

using namespace baylink;

namespace
{

/** Noise that differs in every sample and channel, and is never 0. */
float noiseAt (std::int64_t host, std::size_t channel)
{
    const auto mixed = (static_cast<std::uint64_t> (host) * 2 + channel + 1) * 0x9e3779b97f4a7c15u;
    return static_cast<float> ((mixed ^ mixed >> 29) % 16000001 + 1) * 1.0e-7f;
}

}   // namespace

HostRig::HostRig (const Setup& hostSetup) : setup (hostSetup)
{
    manager.connect (&listener, 2);
    replaceSender();
}

void HostRig::replaceSender()
{
    const auto saved = sender ? sender->id : kNoPod;
    sender.emplace();
    manager.connect (&*sender, 2);
    manager.restorePod (&*sender, saved, "", 0, 0, nullptr);
    manager.openStream (sender->id, 2);
    sent.assign (sent.size(), false);
    inputs.clear();
}

void HostRig::run (const std::string& script)
{
    std::istringstream words (script);
    const auto number = [&words]
    {
        int value = 0;
        words >> value;
        return value;
    };

    for (std::string word; words >> word;)
        if (const auto first = word == "replace" ? 0 : number(); word == "play")
            runBlocks (number(), first, 1 << 30);
        else if (const auto second = word == "loop" || word == "stand" ? number() : 0; word == "loop")
            runBlocks (number(), first, second);
        else if (word == "stand")
            runBlocks (second, first, 1);
        else if (word == "plain" || word == "stop")
            runBlocks (first, {}, 1, word == "stop");
        else if (word == "replace")
            replaceSender();
        else
            (word == "sender" ? senderRuns : word == "listener" ? listenerRuns : listenerReads) = first != 0;
}

void HostRig::runBlocks (int samples, std::optional<std::int64_t> from, int loopLength, bool stopped)
{
    constexpr int longestDrawn = 4096;
    const auto begin = now;
    const auto labelAt = [&] (std::int64_t host)
    { return from ? Label (*from + (host - begin) % loopLength) : Label(); };

    for (const auto end = now + samples; now < end;)
    {
        const auto cycleEnd = std::min<std::int64_t> (end, now + (setup.cycle > 0 ? setup.cycle : draw (longestDrawn)));
        sent.resize (static_cast<std::size_t> (cycleEnd));
        const auto inBlocks = [&] (int block, auto&& process)
        {
            for (auto at = now; at < cycleEnd;)
            {
                const auto wanted = block > 0 ? block : draw (longestDrawn);
                const auto part = static_cast<int> (std::min<std::int64_t> (wanted, cycleEnd - at));
                process (at, part);
                at += part;
            }
        };

        const auto listenerFirst =
            setup.order == Order::listenerFirst || (setup.order == Order::drawn && draw (2) == 1);

        for (const auto sendersTurn : { ! listenerFirst, listenerFirst })
            if (sendersTurn && senderRuns)
                inBlocks (setup.senderBlock, [&] (auto at, int part) { send (at, part, labelAt (at)); });
            else if (! sendersTurn && listenerRuns)
                inBlocks (setup.listenerBlock,
                          [&] (auto at, int part) { listen (at, part, stopped ? lastLabel : labelAt (at)); });

        now = cycleEnd;
    }
}

void HostRig::send (std::int64_t host, int length, Label label)
{
    std::vector<float> blocks[2];

    for (auto at = host; at < host + length; ++at)
    {
        sent[static_cast<std::size_t> (at)] = true;
        blocks[0].push_back (noiseAt (at, 0));
        blocks[1].push_back (noiseAt (at, 1));
    }

    const float* const channels[] = { blocks[0].data(), blocks[1].data() };

    if (label)
        manager.writeAudioAt (sender->id, channels, length, *label);
    else
        manager.writeAudio (sender->id, channels, length);
}

void HostRig::listen (std::int64_t host, int length, Label label)
{
    const auto firstOwn = static_cast<std::int64_t> (inputs.size()) - kMatchedLatency;

    for (auto at = host; at < host + length; ++at)
        inputs.push_back (at);

    if (! listenerReads)
        return;

    listener.choose (sender->id);
    std::vector<float> blocks[2] { std::vector<float> (static_cast<std::size_t> (length)),
                                   std::vector<float> (static_cast<std::size_t> (length)) };
    float* const channels[] = { blocks[0].data(), blocks[1].data() };
    lastLabel = label.value_or (lastLabel);

    if (label)
        manager.readAudioAt (listener.id, channels, length, sender->id, *label);
    else
        manager.readAudio (listener.id, channels, length, sender->id);

    for (auto i = std::max<std::int64_t> (0, -firstOwn); i < length; ++i, ++compared)
    {
        const auto own = inputs[static_cast<std::size_t> (firstOwn + i)];
        const auto expected = [&] (std::size_t channel)
        { return sent[static_cast<std::size_t> (own)] ? noiseAt (own, channel) : 0.0f; };

        if (channels[0][i] == expected (0) && channels[1][i] == expected (1))
            continue;

        ++wrong;
        firstWrong = firstWrong < 0 ? host + i : firstWrong;
    }
}
