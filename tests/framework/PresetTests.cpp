// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/OxJucePresetFolders.h"
#include "framework/OxJucePresetNavUndoableAction.h"
#include "framework/PresetNames.h"
#include "framework/Rig.h"

#include <sys/stat.h>

using namespace duoJudge;

namespace
{

const juce::File fixture (DUO_FIXTURES "/preset-1.1.2.oxp");

juce::File at (const juce::String& path)
{
    return platform::getUserApplicationDataFolder().getChildFile ("ORVEX Audio/Presets/DuoJudge_1").getChildFile (path);
}

/** A product with a block of its own that keeps its presets in files, or in programs. */
struct PresetRig : Rig
{
    explicit PresetRig (bool inFiles) { usesPresetFiles = inFiles, finishConstruction(), stopTimer(); }
    void getExtraStateBlock (juce::MemoryBlock& dest) override
    {
        dest.append (block.toRawUTF8(), size_t (block.length()));
    }
    void setExtraStateBlock (const void* data, int size) override
    {
        block = juce::MemoryBlock (data, size_t (size)).toString().trim();
    }
    void convertParamMap (int from) override
    {
        converted << from << " ";
        setParamUndoable (Test, 1.0f - getParameter (Test), true);   // twice would be none
    }

    bool save (const juce::String& folder, const juce::String& name, float resume)
    {
        setParamDirect (Resume, resume, false);
        OxJucePreset preset (this, folder, name);
        return ! preset.save() && preset.capture() && preset.save();
    }
    juce::String place() { return getPresetState().getName() + " " + juce::String (getParameter (Resume)); }
    juce::String step (int param) { return setParamUndoable (param, 1.0f, true), place(); }
    juce::String block, converted;
};

const auto make = [] (bool inFiles = true) { return std::make_unique<PresetRig> (inFiles); };

}   // namespace

TEST (PresetTest, AFileOfThisVersionLoadsForeverAndIsWrittenTheSame)
{
    auto rig = make();
    const auto file = at ("My &28soft&29/A&2FB.oxp");
    ASSERT_TRUE (file.create().wasOk() && fixture.copyFileTo (file));
    EXPECT_TRUE (rig->loadPreset ("My (soft)", "A/B") && ! rig->isPresetModified() && rig->converted.isEmpty());
    EXPECT_EQ (rig->getProgramName (0) + rig->block, "A/B<Curve points=\"1 &amp; 2\"/>");
    EXPECT_TRUE (rig->getParameter (Choose) == 0.001f && rig->place() == "A/B 0.333");
    EXPECT_EQ (rig->getParamCode (Routing), 100);   // the file says 16, and a recall leaves it alone

    rig->setParamDirect (Routing, 0.016f, false);
    EXPECT_TRUE (! rig->isPresetModified() && file.deleteFile() && rig->save ("My (soft)", "A/B", 0.333f));
    EXPECT_EQ (file.loadFileAsString(), fixture.loadFileAsString());
    rig->setParamDirect (Resume, 0.34f, false);
    EXPECT_TRUE (rig->isPresetModified());
}

TEST (PresetTest, WhatIsNoPresetChangesNothing)
{
    auto rig = make();
    const auto file = at ("x.oxp");
    const auto whole = fixture.loadFileAsString().trimEnd();
    juce::StringArray cases { "<MYPLUGINSETTINGS/>", whole + juce::String::repeatedString ("<a>", 999) };

    for (int size = 0; size < whole.length(); ++size)
        cases.add (whole.substring (0, size));

    rig->setParamDirect (Resume, 0.25f, false);
    const auto fails = [&]
    { return ! rig->loadPreset ({}, "x") && rig->place() == "x 0.25" && rig->converted.isEmpty(); };
    EXPECT_TRUE (fails());

    for (const auto& text : cases)
        EXPECT_TRUE (file.create() && file.replaceWithText (text, false, false, nullptr) && fails()) << text;

    EXPECT_TRUE (file.replaceWithText (whole) && ::truncate (file.getFullPathName().toRawUTF8(), 100 << 20) == 0 &&
                 fails());
    EXPECT_TRUE (file.deleteFile() && ::mkfifo (file.getFullPathName().toRawUTF8(), 0644) == 0 && fails());
    EXPECT_TRUE (file.deleteFile() && file.createDirectory() && fails() && rig->getProgramName (0) == "User01");
}

TEST (PresetTest, AnOddFileLoadsAsFarAsItGoesAndASaveThatFailsLeavesItThere)
{
    auto rig = make();
    const juce::String odd = "<orvexaudiopreset><Parameters Reveal='7' New='1'/><SpecificData/></orvexaudiopreset>";
    const auto longest = juce::String::repeatedString ("x", 251);
    const auto file = at ("User").getChildFile (longest + ".oxp");
    EXPECT_TRUE (file.create() && file.appendText (odd));
    EXPECT_FALSE (rig->save ("User", longest + "x", 1.0f) ||
                  rig->save ("User", juce::CharPointer_UTF8 ("\xc3\xa9"), 1.0f));
    EXPECT_TRUE (rig->loadPreset ("User", longest) && rig->getParameter (Reveal) == 1.0f &&
                 rig->getParameter (Resume) == 0.0f);
    EXPECT_TRUE (rig->converted == "0 " && rig->getPresetState().getFileVersion() == 1);
    EXPECT_TRUE (rig->getPresetState().getSavedValue (Resume) == -1.0f && rig->save ("User", longest, 1.0f));

    // A block that no load would give back does not replace one that is kept; what is no XML is none.
    for (const auto& [block, keeps] : { std::pair ("<A b='1'/>", true), { "<A>text</A>", false }, { "text", true } })
    {
        const auto before = file.loadFileAsString();
        rig->block = block;
        EXPECT_TRUE (rig->save ("User", longest, 0.5f) == keeps && rig->loadPreset ("User", longest)) << block;
        EXPECT_EQ (file.loadFileAsString() != before, keeps) << block;
    }
    EXPECT_EQ (at ("User").getNumberOfChildFiles (juce::File::findFilesAndDirectories), 1);
}

TEST (NavigationTest, FilesAreWalkedRoundBothEndsAndUndoneInOneStep)
{
    auto rig = make();
    EXPECT_TRUE (rig->step (PresetNext) == " 0" && at ("User").isDirectory());   // for a user who has none yet

    for (const auto& [name, resume] : { std::pair ("A/B", 0.25f), { "b", 0.5f }, { "c", 0.75f }, { ".hidden", 1.0f } })
        EXPECT_TRUE (rig->save ("Soft", name, resume));

    EXPECT_TRUE (at ("Soft/readme.txt").create() && rig->save ("Alone", "d", 1.0f));
    EXPECT_EQ (rig->step (PresetNext), "d 1");   // from nowhere: the first of all
    EXPECT_TRUE (rig->step (PresetNext) == "d 1" && rig->step (PresetPrev) == "d 1");
    const auto names = OxJucePresetFolders (*rig).listPresetFiles ("Soft");
    EXPECT_TRUE (names.size() == 3 && ! rig->loadPreset ("Soft", "gone") &&
                 rig->step (PresetPrev).startsWith (names[0]));

    for (const int way : { 1, 1, 1, -1, -1, -1, -1 })
    {
        const auto before = rig->place(), target = names[(names.indexOf (rig->getProgramName (0)) + way + 3) % 3];
        const auto after = target + (target == "A/B" ? " 0.25" : target == "b" ? " 0.5" : " 0.75");
        rig->beginNewTransaction();
        EXPECT_EQ (rig->step (way > 0 ? PresetNext : PresetPrev), after);
        EXPECT_TRUE (rig->step (Undo) == before && rig->step (Redo) == after);
        rig->previousPreset(), rig->nextPreset();
        EXPECT_EQ (rig->place(), after);
    }
}

TEST (NavigationTest, WhatIsListedLoadsHoweverItIsWrittenAndNothingLeavesTheRoot)
{
    auto rig = make();
    const OxJucePresetFolders folders (*rig);

    for (const auto* const written :
         { "My %28soft%29/A%2FB.oxp", "My %28soft%29/A&2FB.oxp", "Caf\xc3\xa9/\xc3\xa9z.OXP" })
    {
        const auto file = at (juce::CharPointer_UTF8 (written));
        EXPECT_TRUE (file.create().wasOk() && fixture.copyFileTo (file)) << written;
    }
    for (const auto& folder : folders.listPresetFolders())
    {
        EXPECT_TRUE (rig->save (folder, "b", 1.0f));
        const auto files = folders.listPresetFiles (folder);
        EXPECT_TRUE (files.size() == 2 && rig->loadPreset (folder, files[0]) && rig->loadPreset (folder, files[1]));
        rig->nextPreset();
        EXPECT_EQ (rig->getPresetState().getEncodedName(), encodePresetName (files[0]));
    }
    EXPECT_TRUE (at (juce::CharPointer_UTF8 ("Odd/\xe6\x97\xa5.oxp")).create() && rig->save ("Odd", "a", 1.0f) &&
                 rig->save ("Odd", "b", 1.0f));
    EXPECT_EQ (folders.findCurrentPreset ("Odd", {}).getName(), folders.findNextPreset ("Odd", {}).getName())
        << "no name is none of them, not even one of which no letter could be written";

    for (const auto* const out : { "..", ".", "\xc3\xa9.." })
    {
        const juce::String folder (juce::CharPointer_UTF8 { out });
        EXPECT_FALSE (folders.createPresetFolder (folder) || rig->save (folder, "x", 1.0f)) << out;
        EXPECT_TRUE (! rig->loadPreset (folder, "x") && folders.listPresetFiles (folder).isEmpty()) << out;
    }
}

TEST (NavigationTest, ProgramsAreWalkedRoundBothEndsAndUndone)
{
    auto rig = make (false);
    rig->setParameter (Resume, 0.25f);

    const std::tuple<int, float, int> steps[] { { PresetPrev, 0.5f, 0 }, { PresetPrev, 1.0f, 45 },
                                                { PresetNext, 1.0f, 0 }, { PresetNext, 1.0f, 1 },
                                                { Undo, 1.0f, 0 },       { Redo, 1.0f, 1 } };

    for (const auto& [param, value, program] : steps)
    {
        rig->clearChangedFlags(), rig->beginNewTransaction(), rig->setParamUndoable (param, value, true);
        EXPECT_TRUE (rig->getCurrentProgram() == program && rig->parameter (Routing).changed == (value == 1.0f));
        EXPECT_EQ (rig->getParameter (Resume), program == 0 ? 0.25f : 0.0f);
    }
    rig->setParameter (Resume, 0.75f), rig->setCurrentProgram (46), rig->setParameter (Resume, 1.0f);
    rig->setParamUndoable (ResetToPreset, 1.0f, true);
    EXPECT_TRUE (rig->getCurrentProgram() == 1 && rig->getParameter (Resume) == 0.75f);
    EXPECT_FALSE (OxJucePresetNavUndoableAction (rig.get(), 3, 0, 1).perform());
    EXPECT_FALSE (OxJucePresetNavUndoableAction (nullptr, 0, 0, 1).undo());
}

TEST (NavigationTest, AChangeOfChannelsBeginsAgainFromWhatWasChosen)
{
    auto rig = make (false);
    const auto change = [&]
    {
        rig->setParamUndoable (Resume, 0.125f, true), rig->setParamUndoable (Resume, 0.0f, true);
        rig->numChannelsChanged();
        return rig->getProgramName (0) + (rig->canUndo() ? " keeps" : " clears") +
               rig->place().fromLastOccurrenceOf (" ", true, {});
    };
    EXPECT_EQ (change(), "User01 clears 0");
    EXPECT_TRUE (rig->save ("User", "a", 0.25f) && rig->save ("", "b", 0.5f) && rig->save ("", "Default", 0.75f));
    EXPECT_TRUE (change() == "Default clears 0.75" && change() == "Default clears 0");
    rig->stateRestored = true, rig->changeProgramName (0, "x");
    EXPECT_TRUE (change() == "Default keeps 0" && at ("Default.oxp").deleteFile() && change() == "Default clears 0");
    rig = make (false);
    EXPECT_TRUE (change() == "b clears 0.5" && at ("b.oxp").deleteFile());
    rig = make (false);
    EXPECT_EQ (change(), "a clears 0.25");
}

TEST (NavigationTest, NewInstancesBeginWithTheStoredDefaults)
{
    auto rig = make (false);
    EXPECT_FALSE (rig->hasStoredDefaults());
    rig->setParamDirect (Resume, 0.5f, false), rig->saveAsDefault();
    rig = make (false);
    rig->setCurrentProgram (45);
    EXPECT_TRUE (rig->getParameter (Resume) == 0.5f && rig->getProgramName (45) == "User46");

    // Where presets are files they turn into one, and stay as long as that fails.
    const auto obstacle = at ("..");
    EXPECT_TRUE (obstacle.create() && make()->hasStoredDefaults() && obstacle.deleteFile());
    rig = make();
    EXPECT_TRUE (! rig->hasStoredDefaults() && rig->loadPreset ({}, "Default") && rig->place() == "Default 0.5");
    rig->save ("User", "a", 0.5f), rig->loadPreset ("User", "a"), rig->saveAsDefault();
    EXPECT_TRUE (make()->getPresetState().getFile() == at ("User/a.oxp"));
}
