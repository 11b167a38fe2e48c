// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorRig.h"
#include "LivePlayer.h"
#include "desk/DeskRig.h"
#include "gui/Pictures.h"

#include "editor/XWindow.h"

namespace
{

constexpr int kLoop = 10007, kBlock = 512, kLatency = 4096;   // samples

/** The built plug-in with its window in a host that plays, a mouse over it, and beside it a window of our own, which says
    where things stand and how they ought to look. */
struct JourneyTest : testing::Test
{
    JourneyTest()
    {
        player.deviceStarts (DeskRig::kRate);
        player.setPlaying (true);
        host.setBounds (600, 10, 600, 300);
        host.addToDesktop (juce::ComponentPeer::windowIsTemporary);
        host.addAndMakeVisible (*view);
        host.setVisible (true);
        screen = std::make_unique<XWindow> (host);
        EXPECT_TRUE (until ([this] { return screen->enter (535, 267); }));
        model.tick();
    }

    /** Plays a block and lets what has come meanwhile through: a picture takes its time. */
    void turn()
    {
        Audio block (2, kBlock);
        float* const outputs[] { block.getWritePointer (0), block.getWritePointer (1) };
        player.audioDeviceIOCallbackWithContext (nullptr, 0, outputs, 2, kBlock, {});
        const auto is = [&] (const Audio& source)
        {
            for (int i = 0; i < 2 * kBlock; ++i)
                if (block.getSample (i & 1, i / 2) != source.getSample (i & 1, (played + i / 2) % kLoop))
                    return false;

            return true;
        };
        heard = is (material.a.audio) ? 'A' : is (material.b.audio) ? 'B' : '-';
        played += kBlock;

        if (screen != nullptr)
            screen->hover();   // no hand is still, and an event that the toolkit has left lying comes with the next

        for (int events = 0; events < 100 && juce::dispatchNextMessageOnSystemQueue (true);)
            ++events;

        juce::Thread::sleep (1);   // for the drawing threads
    }

    template <typename Condition>
    bool until (Condition&& holds, juce::uint32 milliseconds = 30000)
    {
        for (const auto end = juce::Time::getMillisecondCounter() + milliseconds; ! holds(); turn())
            if (juce::Time::getMillisecondCounter() > end)
                return false;

        return true;
    }

    float read (desk::Parameter parameter) const { return graph->readParameter (parameter); }

    /** What is heard, once it is the source that the host sees selected, alone and for a while. */
    char listen()
    {
        const auto selected = [this] { return read (desk::Parameter::toggleAB) == 0.0f ? 'A' : 'B'; };
        int blocks = 0;
        EXPECT_TRUE (until ([&] { return turn(), blocks = heard == selected() ? blocks + 1 : 0, blocks == 12; }));
        return heard;
    }

    /** Holds a button until the host has seen it. While a vote fades it takes no click: then again, as a user would. */
    void press (const juce::String& name, desk::Parameter parameter, float value)
    {
        for (int tries = 0; tries < 5; ++tries, screen->release())
        {
            screen->press (model.centre (name));

            if (until ([&] { return read (parameter) == value; }, 5000))
                return;
        }

        ADD_FAILURE() << name;
    }

    void click (const juce::String& name, desk::Parameter parameter, float whenDown, float whenUp)
    {
        press (name, parameter, whenDown);
        screen->release();
        EXPECT_TRUE (until ([&] { return read (parameter) == whenUp; })) << name;
    }

    /** Presses a button here and in our own window. */
    void clickBoth (const juce::String& name, desk::Parameter parameter)
    {
        click (name, parameter, 1.0f, 0.0f);
        model.click (name);
    }
    void clickBoth (juce::Point<int> place)
    {
        screen->press (place), screen->release();
        model.click (place);
    }

    /** Shows the results in both windows, with the same source playing. @returns which, before the winner does */
    char reveal()
    {
        const auto playing = listen();
        model.set (duoJudge::ToggleAB, playing == 'B' ? 1.0f : 0.0f);
        model.tick();
        clickBoth ("m_btnReveal", desk::Parameter::reveal);
        return playing;
    }

    /** Both windows are to look the same from some column on; before that the normal view has meters. */
    void expectTheSamePicture (int left = 0)
    {
        const auto ofPart = [left] (const XWindow& window) {
            return window.picture().getClippedImage ({ left, 0, 535 - left, 267 });
        };
        const XWindow ours (model.window);
        EXPECT_TRUE (until ([&] { return isNear (ofPart (ours), ofPart (*screen), 0, 0); }) ||
                     looksLike (ofPart (ours), ofPart (*screen), 0));
    }

    const DeskRig home;
    EditorRig model { { 10, 400 } };
    PodSender other { "Other" };   // the first pod, and silent
    const desk::Material material { { "a", noise (2, kLoop, 1), DeskRig::kRate },
                                    { "b", noise (2, kLoop, 2), DeskRig::kRate } };
    desk::LiveDevice noDevice;   // never opened
    const std::unique_ptr<desk::ComparisonGraph> graph = DeskRig::makeGraph (material);
    desk::LivePlayer player { *graph, noDevice };
    const std::unique_ptr<juce::AudioProcessorEditor> view { graph->createEditor() };
    juce::Component host;
    std::unique_ptr<XWindow> screen;
    int played = kLoop - kLatency;   // the place in the loops of what is heard next
    char heard = '-';                // in the last block
};

TEST_F (JourneyTest, ShowsTheVotesThatWereCastForWhatWasHeard)
{
    using desk::Parameter;
    constexpr int besideMeters = 347;   // pixels
    EXPECT_EQ (listen(), 'A');
    expectTheSamePicture (besideMeters);
    clickBoth (model.centre ("m_selPodList"));
    expectTheSamePicture (besideMeters);
    clickBoth (model.placeOfRow (2));
    expectTheSamePicture (besideMeters);
    click ("m_btnSelect_B", Parameter::toggleAB, 1.0f, 1.0f);
    EXPECT_EQ (listen(), 'B') << "the pod that was chosen";

    clickBoth ("m_btnTest", Parameter::test);
    expectTheSamePicture();
    juce::String cast;

    for (int vote = 0; vote < 10; ++vote)
    {
        if (vote % 3 == 1)
        {
            const auto before = listen();
            const auto wantsY = read (Parameter::toggleXY) == 0.0f ? 1.0f : 0.0f;
            const auto* const label = wantsY != 0.0f ? "m_btnSelect_Y" : "m_btnSelect_X";
            click (label, Parameter::toggleXY, wantsY, wantsY);
            model.click (label);
            EXPECT_NE (listen(), before) << "X and Y are never the same";
        }

        press ("m_btnChoose", Parameter::choose, 1.0f);
        cast << juce::String::charToString (juce::juce_wchar (listen()));
        screen->release();
        EXPECT_TRUE (until ([this] { return read (Parameter::choose) == 0.0f; }));
        model.vote (cast.endsWith ("B"));
        listen(), until ([] { return false; }, 100);   // the fade is over, and the window may know
    }

    expectTheSamePicture();
    const auto votesForA = cast.retainCharacters ("A").length(), votesForB = cast.retainCharacters ("B").length();
    EXPECT_EQ (votesForA + votesForB, 10);
    const auto atTheEnd = reveal();
    EXPECT_EQ (model.text ("m_textStats_A") + ":" + model.text ("m_textStats_B"),
               juce::String (votesForA) + ":" + juce::String (votesForB));
    expectTheSamePicture();
    EXPECT_EQ (listen(), votesForA == votesForB ? atTheEnd : votesForA > votesForB ? 'A' : 'B');

    clickBoth ("m_btnResumeTest", Parameter::resume);
    expectTheSamePicture();
    reveal();
    clickBoth ("m_btnEndTest", Parameter::endTest);
    expectTheSamePicture (besideMeters);
    clickBoth ("m_btnTest", Parameter::test);
    expectTheSamePicture();
    EXPECT_EQ (model.text ("m_textNumOfVotes"), "0");
}

}   // namespace
