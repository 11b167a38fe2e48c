// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskRig.h"

#include "platform/KnownFolders.h"

#include <malloc.h>

namespace
{

using Plugin = std::unique_ptr<juce::AudioPluginInstance>;

constexpr int kNumPairs = 50, kMaxBlock = 1024, kLatency = 4096, kSettling = 16384;   // samples
constexpr int kLength = 1 << 18;                                                      // of the timeline, in samples

/** A session with fifty comparators, all of them on copies of the track that feeds the first pod, whose transport, mouse and
    other tracks are at the mercy of chance. */
struct Soak : DeskRig, juce::AudioPlayHead
{
    Soak()
    {
        for (int i = 0; i < kNumPairs; ++i)
            senders.push_back (load (DUO_HOME "/.vst3/BayLinkSend.vst3"));

        for (int i = 0; i < kNumPairs; ++i)
            judges.push_back ({ load (DUO_HOME "/.vst3/DuoJudge.vst3") });
    }

    Plugin load (const char* bundle)
    {
        auto plugin = loadInToolkit (bundle);
        plugin->setPlayHead (this);
        plugin->prepareToPlay (kRate, kMaxBlock);
        return plugin;
    }

    juce::Optional<PositionInfo> getPosition() const override
    {
        PositionInfo info;
        info.setIsPlaying (isPlaying), info.setTimeInSamples (position);
        return info;
    }

    /** One turn of the host: now and then a jump, a click or another sender, then a block for everybody. */
    void turn()
    {
        if (chance.nextInt (200) == 0)
            position = chance.nextInt (kLength), isPlaying = chance.nextInt (4) != 0;

        if (chance.nextInt (8) == 0)
            click (judges[std::size_t (chance.nextInt (kNumPairs))]);

        if (chance.nextInt (400) == 0)   // the first one stays
            senders[std::size_t (1 + chance.nextInt (kNumPairs - 1))] = load (DUO_HOME "/.vst3/BayLinkSend.vst3");

        const auto length = chance.nextInt (8) == 0 ? 1 + chance.nextInt (kMaxBlock) : 512;
        const Audio own = read (material, length);

        for (std::size_t i = 0; i < kNumPairs; ++i)
        {
            hear (judges[i], own);   // half of them before the sender, half after it
            auto& sender = senders[(i + kNumPairs / 2) % kNumPairs];
            auto sent = sender == senders.front() ? own : read (others, length);
            sender->processBlock (sent, noMidi);
        }

        position = (position + (isPlaying ? length : 0)) % kLength;   // a loop

        for (int channel = 0; channel < 2; ++channel)
        {
            auto* const oldest = past.getWritePointer (channel);
            std::move (oldest + length, oldest + kLatency, oldest);
            past.copyFrom (channel, kLatency - length, own, channel, 0, length);
        }
    }

    int numFaults = 0, numHeard = 0;

private:
    struct Judge
    {
        Plugin plugin;
        int settled = 0;   // samples since the last click
    };

    void click (Judge& judge)
    {
        const auto& all = judge.plugin->getParameters();
        auto& parameter = *all[chance.nextInt (all.size())];
        parameter.setValueNotifyingHost (parameter.getValue() < 0.5f ? 1.0f : 0.0f);
        judge.settled = 0;
    }

    /** @returns what comes next from an endless recording, whatever the timeline says. */
    Audio read (const Audio& source, int length)
    {
        Audio block (2, length);

        for (int channel = 0; channel < 2; ++channel)
            block.copyFrom (channel, 0, source, channel, chance.nextInt (source.getNumSamples() - length), length);

        return block;
    }

    /** A and B are the same: once no fade is left, a comparator lets out its own track, whatever it plays. */
    void hear (Judge& judge, const Audio& own)
    {
        auto heard = own;
        judge.plugin->processBlock (heard, noMidi);
        judge.settled += own.getNumSamples();

        if (judge.settled < kSettling)
            return;

        numHeard += 1;

        for (int channel = 0; channel < 2; ++channel)
            numFaults += std::memcmp (heard.getReadPointer (channel), past.getReadPointer (channel),
                                      sizeof (float) * std::size_t (own.getNumSamples())) != 0;
    }

    juce::Random chance { 1 };
    const Audio material = noise (2, 1 << 16), others = noise (2, 1 << 16, 2);
    Audio past { noise (2, kLatency) };   // what the latency holds back
    juce::int64 position = 0;
    bool isPlaying = true;
    juce::MidiBuffer noMidi;
    std::vector<Plugin> senders;
    std::vector<Judge> judges;
};

/** DUO_SOAK_SECONDS tells how much audio plays, if more than the suite has time for. */
TEST (SoakTest, StaysExactAndTakesNoMoreMemoryHoweverLongItRuns)
{
    const auto seconds = juce::SystemStats::getEnvironmentVariable ("DUO_SOAK_SECONDS", "10").getIntValue();
    const auto numTurns = seconds * DeskRig::kRate / 512;
    Soak soak;
    size_t usedBefore = 0;

    for (int turn = 0; turn < numTurns; ++turn)
    {
        if (soak.turn(); turn == numTurns / 10)
            usedBefore = mallinfo2().uordblks;
    }

    constexpr double tolerance = 1 << 20;   // bytes
    EXPECT_NEAR (double (mallinfo2().uordblks), double (usedBefore), tolerance);
    EXPECT_EQ (soak.numFaults, 0);
    EXPECT_GT (soak.numHeard, numTurns);
    const auto log = platform::getUserApplicationDataFolder().getChildFile ("ORVEX Audio/OxLog.log");

    for (const auto& line : juce::StringArray::fromLines (log.loadFileAsString()))
        EXPECT_FALSE (line.startsWith ("ERROR")) << line;
}

}   // namespace
