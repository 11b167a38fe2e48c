// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Rig.h"
#include "framework/Settings.h"

#include <clocale>
#include <thread>

using namespace duoJudge;

namespace
{

const juce::File fixtures (DUO_FIXTURES);

/** The product before a user who answers boxes, in a build whose map versions can be raised. */
struct StateRig : Rig
{
    void showBox (const juce::String& title, const juce::String& text, std::function<void (bool)> answered) override
    {
        boxes << title << "|" << text << "|";
        answer = answered;
    }
    void setExtraStateBlock (const void*, int size) override { extra = size; }
    int getParamMapVersion() override { return version; }
    int getPersistentParamMapVersion() override { return version; }
    void convertParamMap (int from) override { converted << from << " "; }
    void convertPersistentParamMap (int from) override { converted << "p" << from << " "; }

    void load (const std::string& state) { setStateInformation (state.data(), static_cast<int> (state.size())); }
    void stream (const std::string& state) { loadStream (state.data(), state.size()); }
    std::string save (bool asStream = false)
    {
        juce::MemoryBlock block;
        asStream ? saveStream (block) : getStateInformation (block);
        return { block.begin(), block.end() };
    }
    juce::String boxes, converted;
    std::function<void (bool)> answer;
    int extra = 0, version = 1;
};

const auto make = [] { return std::make_unique<StateRig>(); };

std::string root (const std::string& inside)
{
    const auto xml = (inside[0] == '<' ? "" : "<MYPLUGINSETTINGS ") + inside + "</MYPLUGINSETTINGS>";
    const auto length = juce::ByteOrder::swapIfBigEndian (static_cast<juce::uint32> (xml.size()));
    return "VC2!" + std::string (reinterpret_cast<const char*> (&length), 4) + xml + '\0';
}

const auto many = [] (auto piece, int count) { return juce::String::repeatedString (piece, count).toStdString(); };

}   // namespace

TEST (StateTest, AStateOfThisVersionLoadsForever)
{
    auto rig = make();
    juce::MemoryBlock fixture;
    ASSERT_TRUE (fixtures.getChildFile ("state-1.1.2.bin").loadFileAsData (fixture));
    const std::string state (fixture.begin(), fixture.end());
    rig->load (state);
    EXPECT_EQ (rig->getProgramName (7) + rig->getInstanceName(),
               juce::CharPointer_UTF8 ("GrößeMix äö <1> & \"中文\" 🎧"));
    EXPECT_TRUE (rig->getCurrentProgram() == 7 && rig->nameChanged && rig->stateRestored && rig->paramMapVersionFound);
    EXPECT_TRUE (rig->getParameter (Routing) == 0.016f && rig->getParameter (Resume) == 0.333f);

    // Where the own pod is unknown, all but its attributes is written again as it was.
    const auto same = state.substr (state.find (" A_SELECT_NAME"));
    EXPECT_EQ (rig->save().substr (rig->save().size() - same.size()), same);
}

TEST (StateTest, EverySelectionComesBackThoughXAndYFlipIt)
{
    for (int code = 0; code < 4; ++code)
    {
        auto saved = make(), loaded = make();
        saved->setParamDirect (ToggleXY, static_cast<float> (code / 2), false);
        saved->setParamDirect (ToggleAB, static_cast<float> (code % 2), false);
        loaded->load (saved->save());
        EXPECT_TRUE (loaded->save() == saved->save() && ! loaded->canUndo()) << code;
    }
}

TEST (StateTest, HooksHearTheProgramThatIsCurrentWhenTheLoadBegins)
{
    auto rig = make();
    rig->setCurrentProgram (3);
    rig->hooks = 0, rig->told.clear();
    rig->load (root ("CURRENTPRESET='7'><PRESET3 ToggleAB='1' Resume='0.5' Stranger='1'/>"
                     "<PRESET7 Resume='0.25' ParamMapVersion='0.001'/><PRESET46 Resume='1'/>"));
    EXPECT_EQ (rig->told + juce::String (rig->hooks.load()), "3=0 4=0 5=0 6=0 7=0 8=0 9=0.25 10")
        << "and the host what stands in the end";
    EXPECT_EQ (rig->getParamCode (Routing), 100);   // missing there: its default
    EXPECT_TRUE (rig->getCurrentProgram() == 7 && rig->getParameter (Resume) == 0.25f && rig->paramMapVersionFound);
    rig->load (root ("CURRENTPRESET='46'><PRESET7 PRESETNAME='last'/>"));
    EXPECT_TRUE (rig->getCurrentProgram() == 7 && rig->getProgramName (7) == "last" && ! rig->paramMapVersionFound);
}

TEST (StateTest, BytesThatAreNoStateChangeNothing)
{
    const auto whole = root ("CURRENTPRESET='7' A_SELECT_NAME='x'><PRESET0 Resume='1'/>");
    std::string noise (10 << 20, '\0');
    juce::Random (1).fillBitsRandomly (noise.data(), noise.size());
    std::vector<std::string> cases { noise, root ("CURRENTPRESET='7'>" + noise),
                                     root ("CURRENTPRESET='7' A_SELECT_NAME='\xf0zzz'>") };

    for (size_t size = 0; size + 1 < whole.size(); ++size)
        cases.push_back (whole.substr (0, size));

    for (const auto* const length : { "\0\0\0\0", "\1\0\0\0", "\0\0\0\x80", "\xff\xff\xff\xff" })
        cases.push_back ("VC2!" + std::string (length, 4) + whole.substr (8));

    for (const auto& inside :
         { std::string ("<A CURRENTPRESET='7'/>"), "CURRENTPRESET='7'>" + many ("<a>", 100000),
           "CURRENTPRESET='7'>" + many ("<a/>", 100000), "CURRENTPRESET='7'" + many (" a=''", 100000) + ">",
           "A_SELECT_NAME='" + many ("&amp;", 2000000) + "'>", "A_SELECT_NAME='x'>" + many ("&a", 500000),
           std::string ("<!DOCTYPE a [<!ENTITY a 'x&a;'>]><MYPLUGINSETTINGS A_SELECT_NAME='&a;'>") })
        cases.push_back (root (inside));

    auto rig = make();
    const auto before = rig->save();
    rig->setStateInformation (nullptr, 0);
    rig->setStateInformation (whole.data(), -1);
    EXPECT_FALSE (rig->stateRestored);

    for (const auto& bytes : cases)
    {
        rig->stateRestored = false;
        rig->load (bytes);
        rig->loadXmlState (bytes.data(), static_cast<int> (bytes.size()));
        EXPECT_TRUE (rig->save() == before && rig->stateRestored) << &bytes - cases.data() << bytes.substr (0, 80);
    }
}

TEST (StateTest, OddStatesLoadAsFarAsTheyGo)
{
    auto rig = make(), again = make();
    rig->load (root ("<?xml version=\"1.0\" encoding=\"UTF-8\"?> <mypluginSettings LOADEDFROMPREV='2000000000.AAAA' "
                     "CURRENTPRESET='-1'><PRESET0 Routing='nan' TimecodeFramerate='inf' ToggleAB='-1e300' Choose='-5' "
                     "Resume='x' PRESETNAME='\xf4\x8f\xbf\xbf&#4294967295;&#0;'/>") +
               std::string (100, '\1'));
    EXPECT_TRUE (rig->extra == 100 && ! rig->loadedFromPrev && std::isinf (rig->getParameter (ToggleAB)));
    EXPECT_TRUE (std::isnan (rig->getParameter (Routing)) && rig->getParameter (Choose) == -5.0f);
    juce::AudioSampleBuffer block (2, 64);
    rig->processBlock (block, rig->midi);
    rig->timerCallback();
    EXPECT_EQ (rig->getParameterText (Routing) + rig->getParameterText (TimecodeFramerate), "ITU30 fps");
    again->load (rig->save());
    EXPECT_EQ (again->save(), rig->save());
    rig->load (root ("><PRESET0 ToggleAB='nan' ParamMapVersion='nan'/>"));
    rig->version = 2, rig->setParamUndoable (ToggleAB, 1.0f, true);
    rig->checkParamMapVersionCompatibility(), rig->checkParamMapVersionCompatibility();
    EXPECT_EQ (rig->converted + juce::String (rig->getParameter (ToggleAB)), "p1 0 1 1")
        << "numbers replace what is none";
}

TEST (StateTest, ForeignBytesAreKeptUntilTheUserAgreesToLoseThem)
{
    const std::string foreign ("CcnK\0\1\2\3\xff", 9);

    for (const auto& [answer, kept] : { std::pair (-1, true), { 0, true }, { 1, false } })
    {
        auto rig = make(), next = make();
        rig->stream ("");
        rig->setParamDirect (Resume, 0.5f, false);
        rig->stream (foreign);
        rig->stream ("second");
        EXPECT_EQ (rig->boxes,
                   "Duo Judge Warning Info|This session or preset was saved with an earlier version of Duo Judge.\n"
                   "Parameters for this version (1.1.2.0) of Duo Judge will be set as default.\n"
                   "Press OK to overwrite on save (this cannot be undone), press CANCEL to keep state unchanged.|");

        if (answer >= 0)
            rig->answer (answer == 1);

        EXPECT_EQ (rig->save (true) == foreign, kept) << answer;
        next->stream (rig->save());
        EXPECT_TRUE (next->boxes.isEmpty() && next->save (true) == rig->save());
        EXPECT_NE (rig->save().find (" LOADEDFROMPREV=\"9."), std::string::npos);
        rig->stream (rig->save()), rig->answer (false);
        EXPECT_EQ (rig->save (true), next->save());
        const auto late = rig->answer;
        rig.reset();
        late (true);
    }
}

TEST (StateTest, MapVersionsAreConvertedStepByStepAndANewerOneWarnsOnce)
{
    auto rig = make();
    rig->load (root ("><PRESET0 Resume='0.5'/>"));
    rig->checkParamMapVersionCompatibility();
    EXPECT_EQ (readSettingFloat ("PersistentParamMapVersion", 1.0), 0.001f);
    EXPECT_TRUE (rig->getParamCode (ParamMapVersion) == 1 && rig->paramMapVersionFound && rig->converted.isEmpty());
    rig->version = 3;
    rig->checkParamMapVersionCompatibility();
    EXPECT_EQ (rig->converted, "p1 p2 1 2 ");

    auto old = make(), second = make();

    for (auto* const instance : { old.get(), second.get() })
        instance->load (rig->save()), instance->checkParamMapVersionCompatibility();

    EXPECT_EQ (old->boxes + second->boxes + juce::String (old->getParamCode (ParamMapVersion)),
               "WARNING|This session was saved with a newer version of Duo Judge than the one you have installed. "
               "You may lose session data if saving out with this plugin. Please update to the latest version.|3");
}

TEST (StateTest, TheDecimalMarkIsAPointWhereACommaIsTheCustom)
{
    ::setenv ("LOCPATH", fixtures.getChildFile ("locale").getFullPathName().toRawUTF8(), 1);
    const auto custom = std::setlocale (LC_NUMERIC, "comma") != nullptr;
    ::unsetenv ("LOCPATH");
    auto rig = make();
    rig->load (root ("><PRESET0 Resume='0.00100000005'/>"));
    const auto saved = rig->save();
    std::setlocale (LC_NUMERIC, "C");
    EXPECT_EQ (rig->getParameter (Resume), 0.001f);
    EXPECT_NE (saved.find (" Resume=\"0.00100000005\" PRESETNAME"), std::string::npos) << saved;

    if (! custom)
        GTEST_SKIP() << "the C library takes no locale from the fixtures";
}

TEST (StateTest, ASaveDuringALoadHoldsOneStateOrTheOther)
{
    auto rig = make();
    const auto fresh = rig->save();
    rig->load (root ("><PRESET0 Resume='1'/><PRESET45 Resume='1'/>"));
    const auto changed = rig->save();
    std::thread loader (
        [&]
        {
            for (int i = 0; i < 40; ++i)
                rig->load (i % 2 == 0 ? fresh : changed);
        });

    for (int i = 0; i < 40; ++i)
        if (const auto saved = rig->save(); saved != fresh && saved != changed)
            ADD_FAILURE() << saved;

    loader.join();
}
