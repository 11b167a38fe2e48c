// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/HostType.h"
#include "framework/Rig.h"
#include "platform/Process.h"

TEST (HostTypeTest, IsToldByTheProgramsFileName)
{
    const auto* const rows = R"(Ableton Live 6.0.exe=1;live 7.exe=2;Live 8.2.exe=3;Live 10 Cubase5.exe=4;Live.exe=0;
adobe audition.exe=5;Adobe Premiere.exe=6;PROTOOLS.exe=10!;Pro Tools.exe=0!;SONAR 8.exe=8;sonarpdr.exe=9;Logic=11;
Tracktion 3.exe=13;tracktion.exe=14;reaper=12;Cubase4.exe=15;Cubase5.exe=16;cubase6.exe=19;Cubase7.exe=20;
cubase9.exe=18;vstbridgeapp.exe=17;Wavelab 5.exe=22;WaveLab 6.exe=23;wavelab 7.exe=24;WaveLab.exe=25;RM-Host.exe=26;
Samplitude.exe=27;sam.exe=27;My Sam.exe=0;FL Studio.exe=28;fl.exe=0;studio one.exe=31;Nuendo4.exe=21;Sam Logic.exe=11)";
    const auto rig = std::make_unique<Rig>();

    for (const auto& row : juce::StringArray::fromTokens (juce::String (rows).removeCharacters ("\n"), ";", ""))
    {
        const platform::ScopedExecutableFileName redirect (row.upToFirstOccurrenceOf ("=", false, false));
        EXPECT_EQ (platform::getExecutableFileName() + "=" + juce::String (getHostType()) + (isProTools() ? "!" : ""),
                   row);
        EXPECT_EQ (rig->isParameterAutomatable (kNoParam), isProTools());
    }
    EXPECT_EQ (platform::getExecutableFileName() + rig->getPlatformTag(), "framework_testsWIN_VST3");
}
