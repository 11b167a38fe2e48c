// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Rig.h"
#include "framework/Settings.h"
#include "platform/Registry.h"

#include <csignal>
#include <thread>

#include <sys/resource.h>

using namespace platform::registry;

static const auto user = platform::getUserConfigurationFolder, machine = platform::getMachineConfigurationFolder;

static auto values (juce::File (*root)())
{
    return root().findChildFiles (juce::File::findFiles, true);
}

static void put (Root root, Kind kind, const std::string& value, const char* key = "ORVEX Audio\\DUOJUDGE_1")
{
    EXPECT_TRUE (write (root, juce::String ("Software\\") + key, "n", kind, value.data(), int (value.size())));
}

/** Puts a file in the place of a folder, or a folder in that of a file: no rights get past either. */
static void block (const juce::File& file)
{
    const auto obstacle = file.existsAsFile() ? file.getChildFile ("inside") : file;
    EXPECT_TRUE (file.deleteRecursively() && obstacle.create().wasOk());
}

TEST (SettingsTest, FindsAnyNameInAnyCaseAndTakesNoneForAnother)
{
    const auto slashes = juce::String::repeatedString ("/", 300);
    const juce::String list = juce::CharPointer_UTF8 ("|.|..|a/b|a b|a|a.value|x%2fy|x/y|~|жä i|_|-|");
    const juce::String upper = juce::CharPointer_UTF8 ("|.|..|A/B|A B|A|A.VALUE|X%2FY|X/Y|~|ЖÄ I|_|-|");
    const auto names = juce::StringArray::fromTokens (list + slashes + "x|" + slashes, "|", "");

    for (const auto& name : names)
        EXPECT_TRUE (writeSettingText (name, "value of " + name));

    for (int i = 0; i < names.size(); ++i)
    {
        const auto name = juce::StringArray::fromTokens (upper + slashes + "X|" + slashes, "|", "")[i];
        EXPECT_EQ (readSettingText (name), "value of " + names[i]);
    }
    EXPECT_TRUE (values (user).size() == names.size() && readSettingText ("b").isEmpty());
}

TEST (SettingsTest, TheUsersValueHidesTheMachinesWhateverItHolds)
{
    using namespace std::string_literals;
    put (Root::machine, Kind::binary, "\0\0\x80\x3f"s);

    for (const auto& [kind, value, number, text] :
         { std::tuple (Kind::binary, std::string (kMaxValueSize + 1, 'x'), 1.0f, ""),   // too large to hide anything
           { Kind::text, "abc\0"s, 0.5f, "abc" },
           { Kind::text, "no zero"s, 0.5f, "no zero" },
           { Kind::text, "cut \xe2\x82"s, 0.5f, "" },
           { Kind::binary, "12345678"s, 0.5f, "" },
           { Kind::binary, "\0\0\0\x40"s, 2.0f, "" } })
    {
        put (Root::user, kind, value);
        EXPECT_TRUE (readSettingFloat ("N", 0.5) == number && readSettingText ("n") == text) << value;
    }
    put (Root::machine, Kind::text, "1", "OrVex Audio");
    EXPECT_EQ (readMakerSetting ("N"), "1");
    put (Root::user, Kind::text, "2", "ORVEX Audio");
    EXPECT_EQ (readMakerSetting ("n"), "2");
    values (user)[0].replaceWithText ("2");   // no file of the store's
    EXPECT_EQ (readMakerSetting ("n"), "1");
}

TEST (SettingsTest, WritesToBothRootsAndInsistsOnTheUsers)
{
    EXPECT_EQ (getInstallPath ("Presets"), "\\Presets");
    EXPECT_TRUE (writeSettingText ("install folder", "/opt/duo"));
    block (user());
    EXPECT_FALSE (writeSettingText ("Install Folder", "refused"));
    EXPECT_EQ (getManualPath(), "/opt/duo\\Duo Judge Manual.pdf");
    user().deleteFile();
    block (machine());
    EXPECT_TRUE (writeSettingFloat ("n", 0.002f));
    int size = 0;
    const auto* const bytes = static_cast<const char*> (readSettingRaw ("orvex audio\\duojudge_1", "n", size));
    EXPECT_EQ (std::string (bytes, std::size_t (size)), "\x6f\x12\x03\x3b");
}

TEST (SettingsTest, DeletesTheUsersValueAndThenTheMachinesAndSaysWhereItStopped)
{
    // In the user's root and in the machine's: a value, one that nobody can delete, or not even a key.
    for (const auto& [kept, code] : { std::pair ("-v", -1), { "xv", -2 }, { "v-", -3 }, { "vx", -4 }, { "vv", 1 } })
    {
        for (const auto root : { Root::user, Root::machine })
        {
            const auto folder = root == Root::user ? user : machine;
            const auto what = kept[root == Root::user ? 0 : 1];
            folder().deleteRecursively();
            what != '-' ? put (root, Kind::text, "") : void();
            what == 'x' ? block (values (folder)[0]) : void();
        }
        EXPECT_EQ (deleteSetting (getProductSettingsPath(), "N"), code);
        EXPECT_EQ (values (user).isEmpty(), code != -2) << code;
        EXPECT_EQ (values (machine).isEmpty(), code == -3 || code == 1) << code;
    }
    EXPECT_TRUE (deleteSetting (getProductSettingsPath(), "n") == 1 && deleteSetting ("", "n") == 0) << "none is left";
}

TEST (SettingsTest, AFullDiskLeavesTheOldValueAndNothingElse)
{
    EXPECT_TRUE (writeSettingText ("n", "old"));
    rlimit limit {};
    ::getrlimit (RLIMIT_FSIZE, &limit);
    const rlimit full { 1000, limit.rlim_max };   // the beginning still fits
    const auto previous = std::signal (SIGXFSZ, SIG_IGN);
    ::setrlimit (RLIMIT_FSIZE, &full);
    const auto written = writeSettingText ("n", juce::String::repeatedString ("x", 2000));
    ::setrlimit (RLIMIT_FSIZE, &limit);
    std::signal (SIGXFSZ, previous);
    EXPECT_TRUE (! written && readSettingText ("n") == "old" && values (user).size() == 1);
}

TEST (SettingsTest, WritersAtOnceNeverGiveHalfAValue)
{
    EXPECT_TRUE (writeSettingText ("n", "a"));
    std::atomic<int> writing { 2 };
    const auto write200 = [&] (const char* letter)
    {
        for (int i = 0; i < 200; ++i)
            EXPECT_TRUE (writeSettingText ("n", juce::String::repeatedString (letter, 1 + i * 100)));
        --writing;
    };
    std::thread one (write200, "a"), other (write200, "b");

    while (writing > 0)
    {
        const auto value = readSettingText ("n");
        EXPECT_TRUE (value.length() % 100 == 1 && value.containsOnly (value.substring (0, 1))) << value;
    }
    one.join();
    other.join();
}

TEST (SettingsTest, MachineWideParametersMeetTheNextInstance)
{
    const auto id = duoJudge::RoutingDefault;
    std::make_unique<Rig>()->setParamDirect (id, 0.101f, false);
    auto rig = std::make_unique<Rig>();
    EXPECT_TRUE (rig->parameter (id).value == 0.101f && user().deleteRecursively());
    rig->setParamDirect (id, 0.101f, false);   // what stands does not touch the store
    EXPECT_FALSE (user().exists());
}
