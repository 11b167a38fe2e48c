// SPDX-License-Identifier: GPL-3.0-or-later
#include "BayLinkSendProcessor.h"
#include "adapters/HostTools.h"
#include "platform/KnownFolders.h"
#include "pod/OxJucePodUser.h"
#include "support/AudioThreadGuard.h"

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
    auto plugin = loadInToolkit (DUO_SENDER_BUNDLE);
    EXPECT_FALSE (plugin->setBusesLayout ({ { juce::AudioChannelSet::mono() }, { juce::AudioChannelSet::stereo() } }));
    EXPECT_TRUE (plugin->setBusesLayout ({ { juce::AudioChannelSet::mono() }, { juce::AudioChannelSet::mono() } }));
    plugin->updateTrackProperties ({ "Drums", {} });
    plugin->setPlayHead (this);
    plugin->prepareToPlay (44100.0, 4096);
    EXPECT_EQ (plugin->getLatencySamples(), 4096);

    Listener listener;
    juce::Random random (1);
    auto track = noise (1, 60000), passed = track, heard = track;
    position.setIsPlaying (true);

    for (int start = 0, length = 0; start < track.getNumSamples(); start += length)
    {
        const auto time = 50000 + start;
        length = 1 + random.nextInt (random.nextBool() ? 64 : 4096);
        auto block = stretch (passed, start, length), read = stretch (heard, start, length);
        position.setTimeInSamples (time);

        // From the middle on, and before the sender: only positions tell the listener where it is.
        if (start > 30000)
            listener.onPodLinked (listener.id, listener.find ("Drums"));

        listener.manager->readAudioAt (listener.id, read.getArrayOfWritePointers(), read.getNumSamples(),
                                       listener.linked, time);
        random.nextBool() ? plugin->processBlock (block, midi) : plugin->processBlockBypassed (block, midi);
    }

    EXPECT_TRUE (isLate (passed, track, 0, 4096));
    EXPECT_TRUE (isLate (heard, track, 0, 45000));
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

TEST_F (BayLinkSendTest, HasItsManagerToTheLastWhenAHostEndsWithoutRemovingIt)
{
    const auto hostEnds = []
    {
        static PodSender* sender = nullptr;

        // What a thread of the plug-in may do after the manager's library was told of the end.
        const auto lastBlock = []
        {
            juce::AudioBuffer<float> block (2, 64);
            sender->process (block, 0);
            std::_Exit (sender->manager->getPodInfo (sender->id).valid == 1 ? 42 : 1);
        };
        std::atexit (lastBlock);
        sender = new PodSender ("Drums");
        sender->prepare (2, 64);
        std::exit (0);
    };
    EXPECT_EXIT (hostEnds(), testing::ExitedWithCode (42), "");
}
