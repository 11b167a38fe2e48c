// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/AaxHost.h"
#include "adapters/ParentWindow.h"

namespace
{

constexpr int latency = 4096;

struct AaxTest : PlugInTest
{
    AaxTest() : described (aax.takeNotes()) { aax.start(); }
    AaxHost aax { module };
    const std::string described;
};

}   // namespace

TEST_F (AaxTest, DescribesTwoTypesOfOneEffectByNumber)
{
    const auto type = [] (const std::string& stem, const char* last)
    { return "11=54524b50 12=51585730 60=1 51=" + stem + " 52=" + stem + " 304=0 13=5158573" + last + " "; };
    EXPECT_EQ (described, "ORVEX DuoJudge ORVEX DuoJudge 0 " + type ("1", "0") + type ("10002", "1") + "1 ");
    const auto add = module.find<AAX_Result (AAX_IEffectDescriptor*, int)> ("ACFRegisterComponent");
    EXPECT_EQ (std::pair (add (&aax, 1), add (&aax, 2)), std::pair (AAX_SUCCESS, AAX_ERROR_NULL_OBJECT));
    EXPECT_EQ (aax.takeNotes(), type ("10002", "1"));
    const auto canUnload = module.find<AAX_Result()> ("ACFCanUnloadNow");
    EXPECT_NE (canUnload(), AAX_SUCCESS);
    aax.clips = nullptr, aax.gui = nullptr, aax.effect = nullptr;
    EXPECT_EQ (canUnload(), AAX_SUCCESS);
}

TEST_F (AaxTest, PublishesTheBypassAndTheParametersThatHostsMaySee)
{
    AAX_SParameterInfo info {};

    for (int index = 0; aax.effect->GetParameterInfo (index, &info) == AAX_SUCCESS; ++index)
        aax.note (info.id, info.name, info.defaultValue, info.isAutomatable, info.isContinuous, "/", info.numSteps);

    const auto told = aax.takeNotes();
    EXPECT_EQ (told.find ("MasterBypassIDMaster Bypass010/2 3Toggle A and B011/2147483647 4"), 0u) << told;
    EXPECT_EQ (info.id, std::string ("9"));
    aax.set ("MasterBypassID", 1.0), aax.set ("4", 1.0);   // which flips the one below it
    await ([this, heard = std::string()]() mutable { return (heard += aax.takeNotes()) == "3=1 "; });
    EXPECT_EQ (aax.get ("3") + aax.get ("4") + aax.get ("MasterBypassID"), 3.0);
    char text[4][16] {};
    EXPECT_EQ (aax.effect->GetParameterValueString ("MasterBypassID", text[0], 8) |
                   aax.effect->GetParameterValueString ("MasterBypassID", text[1], 7) |
                   aax.effect->GetParameterValueString ("3", text[2], 8) |
                   aax.effect->GetParameterValueString ("3", text[3], 1),
               AAX_SUCCESS);
    EXPECT_EQ (std::string (text[0]) + text[1] + text[2] + text[3], "BypassedBypOnO");

    for (auto* const unknown : { "9004", "-1", "", "x", static_cast<const char*> (nullptr) })
        EXPECT_TRUE (aax.get (unknown) < 0.0 && aax.set (unknown, 1.0) != AAX_SUCCESS);
}

TEST_F (AaxTest, KeepsItsStateInOneChunkAndTakesTheValuesAlone)
{
    constexpr std::uint32_t values = 0x76616c73;
    std::uint32_t id = 0;
    EXPECT_EQ (aax.effect->GetChunkIDFromIndex (0, &id), AAX_SUCCESS);
    EXPECT_EQ (id, 0x6a756365u);
    aax.set ("8", 1.0);
    const auto state = aax.save(), all = aax.save (values);
    std::string room (state.size() + 1, '#');
    AAX_SPlugInChunk unasked { std::uint32_t (room.size()), room.data() }, tight { unasked.size - 2, room.data() };
    EXPECT_TRUE (aax.effect->GetChunk (id, &unasked) == AAX_SUCCESS &&
                 aax.effect->GetChunk (id, &tight) != AAX_SUCCESS);
    EXPECT_EQ (room, state + "#");

    for (const auto& [bytes, chunk, value] : { std::tuple (state, id, 1.0), { all, values, 1.0 }, { all, 1u, 0.0 } })
    {
        aax.set ("8", 0.0), aax.takeNotes();
        EXPECT_EQ (aax.load (bytes, chunk) == AAX_SUCCESS, value > 0.0);
        EXPECT_EQ (aax.takeNotes().find ("8=1 ") != std::string::npos, chunk == id);   // the host hears of it
        EXPECT_EQ (aax.get ("8"), value);
    }
}

TEST_F (AaxTest, ProcessesTheStemsOfItsTypesAlone)
{
    auto source = noise (2, 3 * latency), heard = source;

    for (const auto& [stem, channels] : { std::pair (1, 1), { 0x00010002, 2 }, { 0x00060006, 0 }, { 0, 0 } })
    {
        heard.makeCopyOf (source);
        EXPECT_EQ (aax.start (0.0, AAX_EStemFormat (stem)), channels > 0 ? 0 : -20004) << stem;
        EXPECT_EQ (std::pair (aax.latency, aax.prepared), channels > 0 ? std::pair (latency, 1) : std::pair (-1, 0));
        aax.process (source, heard);
        EXPECT_EQ (int (isLate (heard, source, 0, 0)) + int (isLate (heard, source, 1, 0)), channels);
    }
}

TEST_F (AaxTest, HandsTheTimelineOnWhileTheHostPlays)
{
    auto audio = noise (2, 64);
    int rate = 0;

    for (const auto code : { 6l, 1l, 2l, 4l, 3l, 6l, 5l, 0l, 0l })   // the latest counts while the host tells none
    {
        for (const auto& [timeline, plays] : { std::pair (true, true), { true, false }, { false, true } })
        {
            aax.timeline = timeline, aax.playing = plays, aax.frameRate = AAX_EFrameRate (rate);
            aax.location = timeline && plays ? rate : 99;
            aax.process (audio, audio);
            EXPECT_EQ (std::pair (int (manager.start), std::lround (aax.get ("1") * 1000)), std::pair (rate, code));
        }

        ++rate;
    }
}

TEST_F (AaxTest, RendersAClipInPlaceAsAPlainPassDoesLateButNoWindowWithinTheLatency)
{
    constexpr int length = 20000, longest = 30000;
    auto clip = noise (2, length + longest, 1), pod = noise (2, length + longest, 2);
    auto whole = stretch (clip, 0, length + latency);
    manager.audio = [&pod] (float* const* channels, int numSamples, juce::int64 at)
    {
        for (const auto channel : { 0, 1 })
            std::copy_n (pod.getReadPointer (channel, int (at)), numSamples, channels[channel]);
    };

    for (const auto& [toggle, window] : { std::pair (0.0, 5000),
                                          { 1.0, 5000 },
                                          { 1.0, 8192 },
                                          { 1.0, longest },
                                          { 1.0, latency },
                                          { 1.0, 100 },
                                          { 1.0, 0 } })
    {
        Audio late (2, length + latency), rendered (2, length + longest), silence (2, length);
        rendered.clear(), silence.clear();
        aax.start(), aax.set ("3", toggle), aax.playing = true;
        aax.process (whole, late);
        aax.start(), aax.set ("3", toggle), aax.playing = false;
        auto analysed = window;
        EXPECT_EQ (aax.clips->PreAnalyze (2, window) |
                       aax.clips->AnalyzeAudio (clip.getArrayOfReadPointers(), 2, &analysed) |
                       aax.clips->PostAnalyze() | aax.clips->PreRender (2, 2, window),
                   AAX_SUCCESS);

        for (int done = 0, held = 1; done < length && held > 0; done += held)
        {
            auto in = stretch (clip, done, held = window), out = stretch (rendered, done, window);
            EXPECT_EQ (aax.clips->RenderAudio (in.getArrayOfReadPointers(), 2, out.getArrayOfWritePointers(), 2, &held),
                       AAX_SUCCESS);
            EXPECT_EQ (std::pair (held, analysed), std::pair (window - latency, window - latency));
        }

        EXPECT_EQ (aax.clips->PostRender(), AAX_SUCCESS);

        for (const auto channel : { 0, 1 })
            EXPECT_TRUE (isLate (window > latency ? late : silence, rendered, channel, latency)) << toggle << window;
    }

    aax.foreign = true;   // no parameters of ours
    int size = 5000;
    const auto ins = clip.getArrayOfReadPointers();
    EXPECT_EQ (aax.clips->Initialize (&aax), AAX_SUCCESS);

    for (const auto result :
         { aax.clips->PreRender (2, 2, size), aax.clips->PreAnalyze (2, size),
           aax.clips->RenderAudio (ins, 2, clip.getArrayOfWritePointers(), 2, &size), aax.clips->PostRender(),
           aax.clips->AnalyzeAudio (ins, 2, &size), aax.clips->PostAnalyze() })
        EXPECT_EQ (result, AAX_ERROR_NULL_OBJECT);
}

TEST_F (AaxTest, LetsTheHostHaveTheMouseOverParametersFirst)
{
    ParentWindow parent;
    aax.type = AAX_eViewContainer_Type_Null;
    const auto size = aax.open (parent.window);
    EXPECT_EQ (parent.getContentSize(), std::pair (0, 0));
    aax.type = AAX_eViewContainer_Type_Window;
    EXPECT_EQ (aax.open (parent.window), size);
    await ([&] { return parent.getContentSize() == size; });

    const std::tuple<int, unsigned, bool, std::string> clicks[] {
        { ShiftMask | Mod1Mask, 1, true, "down3:5 up3:5 " },
        { ControlMask, 3, true, "down3:26 up3:26 " },
        { Mod1Mask, 1, true, "touch3 3=1 release3 " },   // the control's own
        { 0, 1, false, "down3:0 touch3 3=0 up3:0 release3 " }
    };

    for (const auto& [keys, button, taken, notes] : clicks)
    {
        std::string heard;
        aax.takesMouse = taken, parent.click (400, 100, unsigned (keys), button);
        await ([&, length = notes.size()] { return (heard += aax.takeNotes()).size() >= length; });
        EXPECT_EQ (heard, notes);
    }
}
