// SPDX-License-Identifier: GPL-3.0-or-later
#include "BayLinkSendProcessor.h"
#include "platform/KnownFolders.h"
#include "pod/OxJucePodUser.h"
#include "support/AudioThreadGuard.h"

#include <gtest/gtest.h>

namespace
{

/** Takes whatever link it is offered. */
struct Listener : OxJucePodUser
{
    Listener() { connect (2); }
    ~Listener() override { manager->disconnect (id); }

    std::int32_t getTypeKey() override { return baylink::kDuoJudgeTypeKey; }
    void onPodLinked (int, int podId) override { linked = manager->link (id, podId) ? podId : baylink::kNoPod; }

    /** @returns the sender of that name, which the plug-in's message thread may be about to give it, or 0. */
    int find (const juce::String& name)
    {
        const auto deadline = juce::Time::currentTimeMillis() + 20000;

        do
            refreshPodList (baylink::kSenderTypeKey);
        while (! podNames.contains (name) && juce::Time::currentTimeMillis() < deadline);

        return podIds[podNames.indexOf (name)];
    }

    int linked = baylink::kNoPod;
};

struct BayLinkSendTest : testing::Test, juce::AudioPlayHead
{
    BayLinkSendTest() { ::setenv ("HOME", DUO_HOME, 1); }

    juce::Optional<PositionInfo> getPosition() const override { return position; }

    static juce::MemoryBlock save (juce::AudioProcessor& plugin)
    {
        juce::MemoryBlock state;
        plugin.getStateInformation (state);
        return state;
    }

    static void restore (juce::AudioProcessor& plugin, const juce::MemoryBlock& state)
    {
        plugin.setStateInformation (state.getData(), static_cast<int> (state.getSize()));
    }

    PositionInfo position;
    juce::MidiBuffer midi;
};

}   // namespace

TEST_F (BayLinkSendTest, PassesTheTrackLateBitForBitAndFeedsItAtItsPositionUntilItIsRemoved)
{
    juce::VST3PluginFormat format;
    juce::OwnedArray<juce::PluginDescription> found;
    juce::String error;
    format.findAllTypesForFile (found, DUO_SENDER_BUNDLE);

    auto plugin = format.createInstanceFromDescription (*found[0], 44100.0, 4096, error);
    EXPECT_FALSE (plugin->setBusesLayout ({ { juce::AudioChannelSet::mono() }, { juce::AudioChannelSet::stereo() } }));
    EXPECT_TRUE (plugin->setBusesLayout ({ { juce::AudioChannelSet::mono() }, { juce::AudioChannelSet::mono() } }));
    plugin->updateTrackProperties ({ "Drums", {} });
    plugin->setPlayHead (this);
    plugin->prepareToPlay (44100.0, 4096);
    EXPECT_EQ (plugin->getLatencySamples(), 4096);

    Listener listener;
    juce::Random random (1);
    std::vector<float> track, passed, heard;
    juce::AudioSampleBuffer block (1, 4096), read (1, 4096);
    position.setIsPlaying (true);

    while (track.size() < 60000)
    {
        const auto time = 50000 + static_cast<juce::int64> (track.size());
        const auto length = 1 + random.nextInt (random.nextBool() ? 64 : 4096);
        position.setTimeInSamples (time);
        block.setSize (1, length, false, false, true);

        for (int i = 0; i < length; ++i)
            block.setSample (0, i, track.emplace_back (random.nextFloat() - 0.5f));

        // From the middle on, and before the sender: only positions tell the listener where it is.
        if (track.size() > 30000)
            listener.onPodLinked (listener.id, listener.find ("Drums"));

        listener.manager->readAudioAt (listener.id, read.getArrayOfWritePointers(), length, listener.linked, time);
        random.nextBool() ? plugin->processBlock (block, midi) : plugin->processBlockBypassed (block, midi);
        heard.insert (heard.end(), read.getReadPointer (0), read.getReadPointer (0) + length);
        passed.insert (passed.end(), block.getReadPointer (0), block.getReadPointer (0) + length);
    }

    EXPECT_TRUE (std::equal (passed.begin() + 4096, passed.end(), track.begin()));
    EXPECT_TRUE (std::equal (heard.begin() + 45000, heard.end(), track.begin() + 45000 - 4096));
    plugin.reset();
    EXPECT_EQ (listener.manager->getPodInfo (listener.linked).valid, 0);
}

TEST_F (BayLinkSendTest, ComesBackUnderItsNameIdAndLinkWhicheverPlugInTheSessionLoadsFirst)
{
    const auto longest =
        juce::String::repeatedString (juce::String::fromUTF8 ("\U0001f941"), 32);   // of four bytes each
    Listener before, after;
    auto sender = std::make_unique<BayLinkSendProcessor>();
    sender->updateTrackProperties ({ "Drums", {} });
    sender->setTypedName (" ");
    EXPECT_GT (before.find ("Drums"), 0);
    sender->setTypedName (longest + longest);
    const auto savedId = before.find (longest);
    const auto state = save (*sender);

    sender = std::make_unique<BayLinkSendProcessor>();
    before.manager->restorePod (&before, 1, "", 3, 1, &savedId);
    restore (*sender, state);
    after.manager->restorePod (&after, 2, "", 3, 1, &savedId);
    EXPECT_EQ (before.linked, before.find (longest));
    EXPECT_EQ (after.linked, before.linked);
    EXPECT_EQ (sender->getTypedName(), longest);
    EXPECT_EQ (sender->countListeners(), 2);
}

TEST_F (BayLinkSendTest, DoesWithoutAManagerAndKeepsWhatItHasWhenBytesAreNoState)
{
    BayLinkSendProcessor saved, other;
    const platform::ScopedCommonProgramFilesFolder nowhere { juce::File (DUO_HOME) };
    BayLinkSendProcessor sender;
    saved.setTypedName ("Kept");
    const auto kept = save (saved), valid = save (other);
    restore (sender, kept);

    for (std::size_t length = 0; length < valid.getSize(); ++length)
        restore (sender, { valid.getData(), length });

    for (const auto& text :
         { juce::String::repeatedString ("<A>", 1000000) + "<A/>", juce::String ("<A TYPEDNAME=\"\"/>"),
           juce::String ("<!DOCTYPE A [<!ENTITY b \"&b;&b;\">]><BAYLINKSEND TYPEDNAME=\"&b;\"/>") })
        restore (sender, { text.toRawUTF8(), text.getNumBytesAsUTF8() });

    EXPECT_EQ (save (sender), kept);

    for (auto* const each : { &saved, &sender })
    {
        each->prepareToPlay (44100.0, 4097);
        juce::AudioSampleBuffer block (2, 4097);
        block.clear();
        block.setSample (1, 0, -0.5f);
        const AudioThreadGuard guard;
        each->processBlock (block, midi);
        EXPECT_EQ (guard.counts().allocations + guard.counts().locks + guard.counts().systemCalls, 0);
        EXPECT_EQ (block.getSample (1, 4096), -0.5f);
    }
}
