// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/MachineStamp.h"
#include "framework/Rig.h"
#include "framework/Settings.h"
#include "platform/Process.h"

#include <regex>
#include <thread>

const auto shared = [] { return platform::getUserApplicationDataFolder().getChildFile ("ORVEX Audio/OxLog.log"); };

const auto support = []
{ return platform::getUserDocumentsFolder().getChildFile ("ORVEX Audio/Duo Judge/OxSupportLog.log"); };

/** A file with "=" for each whole banner around a message, and without what the lack of a manager adds. */
juce::String read (const juce::File& file)
{
    const std::regex banner ("\r\n[*]{58}\r\n([^\r]*)\r\nLog started: [^\r]*\r\n\r\n"), error ("ERROR: [^\r]*\r\n");
    const auto text = file.loadFileAsString().toStdString();
    return juce::String (std::regex_replace (std::regex_replace (text, banner, "=$1\r\n"), error, ""));
}

juce::String decode (const juce::String& stamp)
{
    juce::MemoryBlock block;
    block.fromBase64Encoding (stamp);
    const auto text = block.toString().toStdString();
    std::smatch found;
    const auto isStamp = std::regex_match (text, found, std::regex ("[a-z]*([0-9a-f]{2})-(.*)")) && text.size() == 160;
    return isStamp ? found[2].str().substr (0, std::stoul (found[1], nullptr, 16)) : "?";
}

TEST (LogTest, IsOneOfTheProcessAndLeavesNoneButAnothersBehind)
{
    const platform::ScopedExecutableFileName host ("Live 8.2.exe");
    const auto expected = "=Duo Judge v1.1.2.0 VST3 Windows RELEASE intel 64bit, host = 'Live 8.2', user = '" +
                          platform::getComputerName() + "'\r\n3. ToggleAB\t=\t0\r\n";
    juce::FileLogger others (shared().getSiblingFile ("1"), {});

    for (auto* const atTheEnd : { static_cast<juce::FileLogger*> (nullptr), &others })
    {
        auto first = std::make_unique<Rig>(), second = std::make_unique<Rig>();
        first.reset();
        second->logParam (duoJudge::ToggleAB);
        atTheEnd != nullptr ? juce::Logger::setCurrentLogger (atTheEnd) : void();
        second.reset();
        EXPECT_EQ (juce::Logger::getCurrentLogger(), atTheEnd);
    }
    juce::Logger::setCurrentLogger (nullptr);
    EXPECT_EQ (read (shared()), expected + expected);
    EXPECT_FALSE (support().exists());
}

TEST (LogTest, ForTheSupportDeskStaysWholeWhenTwoThreadsBuildProcessors)
{
    const platform::ScopedCommonProgramFilesFolder noManager (juce::File ("/nowhere"));
    const auto build = []
    {
        for (int i = 0; i < 20; ++i)
            std::make_unique<DuoJudgeProcessor> (0)->logParam (duoJudge::Choose);
    };
    writeSettingFloat ("ExportSupport", 0.001f);
    std::thread other (build);
    build();
    other.join();
    const auto lines = juce::StringArray::fromLines (read (support()).trim());

    for (int i = 0; i < std::max (80, lines.size()); ++i)
        EXPECT_EQ (i % 2 ? decode (lines[i]) : lines[i], i % 2 ? platform::getComputerName() : "=OxSupportLog");

    EXPECT_EQ (juce::StringArray::fromTokens (read (shared()), "\t", {}).size() - 1, 40 * 2);
    EXPECT_EQ (juce::Logger::getCurrentLogger(), nullptr);

    for (const auto& [length, kept] : { std::pair (0, 0), { 156, 156 }, { 158, 157 } })
        EXPECT_EQ (decode (makeMachineStamp (juce::String::repeatedString ("Z", length))).length(), kept);

    EXPECT_EQ (decode (makeMachineStamp (juce::String::repeatedString (u8"ü", 99))).length(), 78);
}

TEST (LogTest, OpensALongFileCutToItsLastLines)
{
    const auto lines = [] (int number) { return juce::String::repeatedString ("123456789\n", number).toStdString(); };
    const auto justFits = "1\n" + lines (13107), noughts = std::string (200000, '\0') + lines (101);

    for (const auto& [old, kept] :
         { std::pair (lines (20000), 131070), { "\n" + justFits, 131072 }, { justFits, 131072 }, { noughts, 1000 } })
    {
        shared().getParentDirectory().createDirectory();
        shared().replaceWithData (old.data(), old.size());
        std::make_unique<Rig>().reset();
        const auto now = shared().loadFileAsString();
        EXPECT_TRUE (now.startsWith (old.substr (old.size() - kept) + "\r\n***"));
    }
}

TEST (LogTest, IsDoneWithoutWhereItCannotBeWritten)
{
    for (const auto& obstacle : { platform::getUserApplicationDataFolder(), shared().getParentDirectory(), shared() })
    {
        obstacle == shared() ? obstacle.createDirectory() : obstacle.create();
        std::make_unique<Rig>()->logParam (0);
        EXPECT_TRUE (! shared().existsAsFile() && obstacle.deleteRecursively());
    }
}
