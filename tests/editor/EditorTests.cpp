// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorRig.h"

#include "controls/OxJuceDragControl.h"
#include "metering/OxJuceDynamicDisplayLevelMeter.h"

#include <thread>

using namespace duoJudge;

namespace
{

constexpr auto kNormal =
    "btnNameDisplay btnSelect_A btnSelect_B btnSendGain btnTest btnTitle selPodList sliderSendGain";

TEST (EditorTest, CountsVotesAndConfirmsThemUntilTheFadeIsOver)
{
    EditorRig rig;
    rig.addPod().processor->setCoin ([] { return 1; });
    rig.tick();
    rig.click ("m_btnTest");
    EXPECT_EQ (rig.text ("m_textNumOfVotes"), "0");
    EXPECT_EQ (rig.lines(), "<");
    rig.click ("m_btnSelect_Y");
    EXPECT_EQ (rig.lines(), ">");
    rig.press ("m_btnChoose");
    EXPECT_EQ (rig.text ("m_textNumOfVotes"), "0") << "a vote is cast on release";
    EXPECT_EQ (rig.highlighted(), "");
    rig.release();
    EXPECT_EQ (rig.text ("m_textNumOfVotes"), "1");
    EXPECT_EQ (rig.locked(), "btnChoose btnSelect_X btnSelect_Y");
    EXPECT_EQ (rig.highlighted(), "btnChoose btnSelect_X btnSelect_Y");
    EXPECT_EQ (rig.dimmed(), "");
    rig.click ("m_btnChoose");
    EXPECT_EQ (rig.processor->getVoteStatistics().votes, 1);
    rig.run (8192), rig.tick();
    EXPECT_EQ (rig.locked(), "");
    EXPECT_EQ (rig.lines(), ">") << "what the lit label stands for is drawn anew, the label stays";

    rig.click ("m_btnReveal");
    EXPECT_EQ (rig.processor->getParameter (ToggleAB), 1.0f);
    rig.processor->setCoin ([] { return 0; });
    rig.click ("m_btnResumeTest");
    EXPECT_EQ (rig.processor->getParameter (ToggleAB), 0.0f) << "resuming draws";
    EXPECT_EQ (rig.text ("m_textNumOfVotes"), "1");
    rig.EngineRig::click (EndTest), rig.tick();
    EXPECT_EQ (rig.shown(), kNormal) << "the host has ended the test";
    rig.click ("m_btnTest");
    EXPECT_EQ (rig.text ("m_textNumOfVotes"), "0");
}

TEST (EditorTest, ShowsHowTheVotesFellAndSelectsTheWinner)
{
    struct Case
    {
        int votesForA, votesForB;
        const char *percent, *lines;
        int bigTextHeight, selectedBefore, selected;
    };
    constexpr auto big = 74, smaller = 57;   // pixels
    const Case cases[] { { 0, 0, "-", "", big, 1, 1 },         { 1, 0, "100%", "<", smaller, 1, 0 },
                         { 0, 2, "100%", ">", smaller, 0, 1 }, { 2, 1, "67%", "<", big, 1, 0 },
                         { 1, 1, "50%", "<>", big, 1, 1 },     { 2, 2, "50%", "<>", big, 0, 0 },
                         { 1, 7, "87%", ">", big, 0, 1 },      { 7, 1, "88%", "<", big, 1, 0 } };

    for (const auto& [forA, forB, percent, lines, textHeight, before, selected] : cases)
    {
        EditorRig rig;
        rig.addPod(), rig.tick();
        rig.click ("m_btnTest");

        for (int i = 0; i < forA + forB; ++i)
            rig.vote (i >= forA);

        rig.set (ToggleAB, float (before)), rig.tick();
        rig.click ("m_btnReveal");
        const auto total = forA + forB;
        EXPECT_EQ (rig.text ("m_textStatistics"), percent) << forA << ":" << forB;
        EXPECT_EQ (rig.text ("m_textStats_A"), total > 0 ? juce::String (forA) : "-");
        EXPECT_EQ (rig.text ("m_textStats_B"), total > 0 ? juce::String (forB) : "-");
        EXPECT_EQ (rig.lines(), lines) << percent;
        EXPECT_EQ (rig.find<OxJuceButton> ("m_textStatistics").getFont()->getHeight(), textHeight) << percent;
        EXPECT_EQ (rig.processor->getParameter (ToggleAB), float (selected)) << percent;
        EXPECT_EQ (rig.locked(), "selPodList") << "the results are of one pod";
    }
}

TEST (EditorTest, FollowsThePodsThatComeAndGo)
{
    EditorRig rig;
    const auto pods = [&] { return rig.find<OxJuceSelectorControl> ("m_selPodList").getItems().joinIntoString (", "); };
    EXPECT_EQ (pods() + ": " + rig.text ("m_selPodList"), "Not Connected: Not Connected");
    EXPECT_EQ (rig.locked(), "btnSelect_A btnSelect_B btnTest");
    EXPECT_EQ (rig.dimmed(), "btnSelect_B btnTest") << "A is heard";
    rig.click ("m_btnTest"), rig.click ("m_btnSelect_B");
    EXPECT_EQ (rig.shown(), kNormal);
    EXPECT_EQ (rig.processor->getParameter (ToggleAB), 0.0f);

    rig.addPod(), rig.tick();
    auto drums = std::make_unique<PodSender> ("Drums");
    rig.tick();
    EXPECT_EQ (pods() + ": " + rig.text ("m_selPodList"), "Not Connected, Reference, Drums: Reference");
    EXPECT_EQ (rig.locked(), "");
    rig.chooseRow (2);
    EXPECT_EQ (rig.text ("m_selPodList"), "Drums");
    EXPECT_EQ (drums->countListeners(), 1);
    EXPECT_EQ (rig.pod->countListeners(), 0);
    rig.chooseRow (0);
    EXPECT_TRUE (rig.find<OxJuceSelectorControl> ("m_selPodList").isOpen()) << "no pod cannot be chosen";
    EXPECT_EQ (rig.text ("m_selPodList"), "Drums");
    rig.click (juce::Point (5, 5));

    rig.pod.reset(), rig.tick();
    EXPECT_EQ (pods() + ": " + rig.text ("m_selPodList"), "Not Connected, Drums: Drums");
    drums.reset(), rig.tick();
    EXPECT_EQ (pods() + ": " + rig.text ("m_selPodList"), "Not Connected: Not Connected");
    EXPECT_EQ (rig.locked(), "btnSelect_A btnSelect_B btnTest");
}

TEST (EditorTest, StaysOrComesBackToTheNormalViewWhenThePodGoes)
{
    // What is held when it goes, in the test view if that is what comes first.
    for (const juce::String held :
         { "m_btnTest", "m_btnChoose", "m_btnReveal", "m_btnSelect_Y", "m_btnResumeTest", "" })
    {
        EditorRig rig;
        rig.addPod(), rig.tick();

        if (held != "m_btnTest")
            rig.click ("m_btnTest"), rig.vote (true);

        if (held == "m_btnResumeTest")
            rig.click ("m_btnReveal");

        if (held.isNotEmpty())
            rig.press (held);

        rig.pod.reset(), rig.tick();
        EXPECT_EQ (rig.shown(), kNormal) << held;
        rig.release();
        EXPECT_EQ (rig.shown(), kNormal) << held;
        EXPECT_EQ (rig.locked(), "btnSelect_A btnSelect_B btnTest") << held;
        EXPECT_EQ (rig.processor->getParameter (duoJudge::Test), 0.0f) << held;
        EXPECT_EQ (rig.processor->getVoteStatistics().votes, 0) << held;
    }
}

TEST (EditorTest, ShowsTheNameOfTheOwnSignal)
{
    EditorRig rig;
    EXPECT_EQ (rig.text ("m_btnNameDisplay"), "Self");

    for (const auto& [typed, shown] : { std::pair ("Mix 7", "Mix 7"), { "", "Self" }, { "Lead", "Lead" } })
    {
        rig.find<OxJuceTextEdit> ("m_btnNameDisplay").textEditFinished (typed);
        EXPECT_EQ (rig.processor->getInstanceName(), typed);
        EXPECT_EQ (rig.text ("m_btnNameDisplay"), shown);
        rig.close(), rig.open();
        EXPECT_EQ (rig.text ("m_btnNameDisplay"), shown) << "in a window opened anew";
    }

    juce::MemoryBlock saved;
    rig.processor->getStateInformation (saved);
    rig.find<OxJuceTextEdit> ("m_btnNameDisplay").textEditFinished ("Other");
    rig.processor->setStateInformation (saved.getData(), int (saved.getSize()));
    rig.tick();
    EXPECT_EQ (rig.text ("m_btnNameDisplay"), "Lead") << "from a loaded state";
}

TEST (EditorTest, TakesATypedSendGain)
{
    EditorRig rig;

    for (const auto& [typed, text] : { std::pair ("3", "3.0dB"),
                                       { "-2,5", "-2.5dB" },
                                       { "abc", "-2.5dB" },
                                       { "", "-2.5dB" },
                                       { "4 dB", "4.0dB" },
                                       { "99", "10.0dB" } })
    {
        rig.find<OxJuceDragControl> ("m_btnSendGain").textEditFinished (typed);
        EXPECT_EQ (rig.processor->getParameterText (SendGain), text) << typed;
    }
}

TEST (EditorTest, ShowsOwnAndPodSignalSideBySideChannelByChannel)
{
    EditorRig rig;
    std::map<int, int> signals;   // by the left edges of their meters

    for (auto* const component : EditorRig::everything (*rig.editor))
        if (const auto* const meter = dynamic_cast<OxJuceDynamicDisplayLevelMeter*> (component))
            for (int index = 0; index < 4; ++index)
                if (meter->observer == &rig.processor->getMeter (index))
                    signals[rig.window.getLocalPoint (component, juce::Point<int>()).x] = index;

    juce::String fromTheLeft;

    for (const auto& [left, signal] : signals)
        fromTheLeft << signal;

    EXPECT_EQ (fromTheLeft, "0213") << "0 and 2 are the channels of the own signal, 1 and 3 the pod's";
}

TEST (EditorTest, LetsTheUserSayWhetherTheHostKnowsTheTime)
{
    EditorRig rig;
    rig.click ("m_btnTitle"), rig.click ("Menu item 3");
    auto& list = rig.find<OxJuceSelectorControl> ("Host Supports Timecode");
    EXPECT_EQ (list.getItems().joinIntoString (" "), "Detect Off On");
    list.setValue (thousandths::fromCode (2), true);
    EXPECT_EQ (rig.processor->getParamCode (UseTimestampedPodAudioOverride), 2);
}

TEST (EditorTest, OpensAnewInTheNormalViewHoweverItWasClosed)
{
    for (const auto* const held : { "m_btnChoose", "m_btnReveal", "m_btnSelect_Y", "" })
    {
        EditorRig rig;
        rig.addPod(), rig.tick();
        rig.click ("m_btnTest"), rig.vote (false);

        if (juce::String (held).isNotEmpty())
            rig.press (held);

        rig.close();
        EXPECT_EQ (rig.processor->getParameter (Choose) + rig.processor->getParameter (Reveal), 0.0f) << held;
        const auto votes = rig.processor->getVoteStatistics().votes;
        EXPECT_EQ (votes, 1) << "what is held votes for nothing";
        rig.move (rig.pointer);
        rig.open();
        EXPECT_EQ (rig.shown(), kNormal) << held;
        rig.click ("m_btnTest");
        EXPECT_EQ (rig.text ("m_textNumOfVotes"), juce::String (votes)) << "the processor keeps them";
        rig.run (8192), rig.tick();
        rig.vote (true);
        EXPECT_EQ (rig.text ("m_textNumOfVotes"), juce::String (votes + 1)) << held;
    }
}

TEST (ThreadsTest, AudioAndFramesGoOnWhileUserHostAndPodsDoAsTheyLike)
{
    EditorRig rig;
    rig.processor->setCoin (makeFairCoin());
    juce::MemoryBlock state;
    rig.processor->getStateInformation (state);
    std::atomic<bool> stop { false };
    std::thread audio (
        [&]
        {
            juce::AudioSampleBuffer block (2, 64);
            block.clear();

            while (! stop)
                rig.processor->processBlock (block, rig.midi);
        });
    std::thread automation (
        [&]
        {
            for (int i = 0; ! stop; juce::Thread::sleep (1), ++i)
                rig.processor->setParameter (i % 3 == 0 ? ToggleXY : i % 7 == 0 ? EndTest : ToggleAB, float (i & 1));
        });

    for (int i = 0; i < 200; ++i)
    {
        i % 20 == 0 ? (void) rig.addPod() : i % 20 == 15 ? rig.pod.reset() : void();
        const char* const buttons[] { "btnTest", "btnSelect_X", "btnChoose", "btnReveal", "btnResumeTest" };

        if (const juce::String button (buttons[i % 5]); rig.shown().contains (button))
            rig.click ("m_" + button);

        rig.set (SendGain, float (i % 7) / 7.0f).set (i % 3 == 0 ? Undo : Redo, 1.0f);

        if (i % 25 == 7)
            rig.processor->setStateInformation (state.getData(), int (state.getSize()));

        if (i % 50 == 33)
            rig.close(), rig.open();

        rig.tick(), pumpFor (2);
    }

    stop = true;
    audio.join(), automation.join();
    EXPECT_EQ (rig.processor->getSelectedPodId(), baylink::kNoPod);
    rig.run (8192);                                  // the last vote's fade
    rig.EngineRig::click (EndTest).click (Choose);   // one of the two writes is a change, whatever the others left
    const auto votes = rig.processor->getVoteStatistics();
    EXPECT_EQ (std::pair (votes.votes, votes.votesForA + votes.votesForB), std::pair (1, 1));
}

}   // namespace
