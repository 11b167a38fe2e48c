// SPDX-License-Identifier: GPL-3.0-or-later
#include "menu/MenuRig.h"

#include "framework/Settings.h"
#include "menu/HotLinks.h"

#include <set>

using duoJudge::ShowBaseMenu, duoJudge::ExportSupport, duoJudge::UseTimestampedPodAudioOverride;

namespace
{

/** A screen of a test's own. */
struct Page : OxJuceMenuScreen
{
    using Content = std::function<void (OxJuceMenu&)>;
    explicit Page (Content c) : content (std::move (c)) {}
    void build (OxJuceMenu& menu) override { content (menu); }
    static auto make (Content c) { return std::make_unique<Page> (std::move (c)); }

    const Content content;
};

const auto kYear = juce::String (__DATE__).getLastCharacters (4);
const auto kMainMenu =
    "Version 1.1.2.0 64bit|Built in " + kYear + "|Credits and Options|Open manual|Check for updates| Close ";

}   // namespace

TEST (MenuTest, FollowsItsParameterAndEveryWayLeadsBack)
{
    MenuRig rig;
    EXPECT_EQ (rig.text(), kMainMenu);
    rig.click ("Credits and Options");
    const auto credits = rig.text();
    rig.setMenu (0.5f);
    EXPECT_EQ (rig.text(), credits) << "it is open already";
    rig.click ("Back");
    EXPECT_EQ (rig.text(), kMainMenu);
    rig.click ("Credits and Options"), rig.editor.resized();
    EXPECT_EQ (rig.text(), kMainMenu) << "laid out anew";
    rig.click (" Close ");
    EXPECT_TRUE (rig.getShown().empty() && rig.parameter (ShowBaseMenu).value == 0.0f);
}

TEST (MenuTest, PassesThroughScreensThatOnlyActAndTakesATargetOnce)
{
    MenuRig rig;
    int choices = 0;
    const auto choice = Page::make ([&] (auto& menu) { ++choices, menu.addText ("chosen", 13); })->content;
    const auto shown = [&] (auto& menu) { menu.addMenuItem ("choose", Page::make (choice)); };
    const auto acts = [&] (auto& menu) { menu.addText ("unseen", 13), menu.setNextScreen (Page::make (shown)); };
    rig.editor.menu.showScreen (Page::make (acts)), rig.editor.menu.showScreen (nullptr);
    EXPECT_EQ (rig.text(), "choose");
    auto& item = *rig.getShown().back();
    item.setValue (1.0f, true), item.setValue (1.0f, true);
    EXPECT_EQ (rig.text() + juce::String (choices), "chosen1");
}

TEST (MenuTest, WrapsTextAndSetsLinesCloserThatDoNotFit)
{
    MenuRig rig (MenuRig::typeVst3, 200);
    const juce::String wide ("\"some words that stay together whatever it takes\"");
    const auto text = "short\n" + wide + " one two three four five six seven";
    rig.editor.menu.showScreen (Page::make ([&] (auto& menu) { menu.addWrappedText (text); }));
    EXPECT_EQ (rig.read (true).joinIntoString ("|"),
               "0 76 200 13 short|0 92 200 13 " + wide +
                   "|0 108 200 13 one two three four five six|0 124 200 13 seven");

    for (const int count : { 11, 12, 60 })   // eleven lines end at 252, twelve at 268
    {
        const auto lines = [&] (auto& menu)
        {
            for (int line = 0; line < count; ++line)
                menu.addText ("line", 13);
        };
        rig.editor.menu.showScreen (Page::make (lines));
        EXPECT_TRUE (count == 60 || rig.getShown().back()->getY() == (count == 11 ? 236 : 252 * 262 / 268));
        EXPECT_EQ (rig.read().size(), std::min (count, 49)) << "with the title all that there may be";
    }
}

TEST (MenuTest, OffersOptionsThatMoveTheirParameters)
{
    MenuRig rig (MenuRig::typeVst3, 535, 800);
    const auto places = [&] (bool hasRow)
    {
        rig.hasRow = hasRow, rig.editor.resized(), rig.click ("Credits and Options");
        return rig.read (true).joinIntoString ("|", 1, 4);
    };
    EXPECT_EQ (places (false),
               "92 217 170 13 Show profiling|267 217 30 13 Off|92 233 170 13 Export Support|267 233 30 13 Off");
    EXPECT_EQ (places (true),
               "57 227 170 13 Show profiling|232 227 30 13 Off|272 227 83 13 Export Support|355 227 30 13 Off");
    auto& list = *rig.getShown<OxJuceSelectorControl>().at (0);
    list.setValue (0.002f, true);
    EXPECT_EQ (list.getSelectedText() + juce::String (rig.getParamCode (UseTimestampedPodAudioOverride)), "c2");
    auto &profiling = *rig.getShown().at (5), &exporting = *rig.getShown().at (7);
    exporting.setValue (1.0f, true);
    EXPECT_EQ (rig.parameter (ExportSupport).value, 1.0f);
    rig.setParamDirect (ExportSupport, 0.0f, false), rig.editor.updateGui();
    EXPECT_EQ (exporting.getLabel (exporting.getState()), "Off");
    profiling.setValue (1.0f, true), rig.editor.updateGui();
    EXPECT_TRUE (rig.profilerEnabled && rig.getShown().empty()) << "the profiler is to be seen";
    exporting.setValue (1.0f, true);
    EXPECT_EQ (rig.parameter (ExportSupport).value, 0.0f) << "an item that is not used has no parameter";
}

TEST (MenuTest, NamesEverybodyOnceInAnyOrderAndTheFormat)
{
    const juce::String vst ("VST by Steinberg Media Technologies GmbH|"), au ("AU by Apple Computer Inc|"),
        rtas ("AudioSuite and RTAS technology by Avid|"), aax ("AAX technology by Avid|");
    const juce::String formats[] { "", vst, au, rtas, aax, "", rtas, vst.replace ("VST", "VST3") };
    std::set<juce::String> orders, people;

    for (int visit = 0; visit < 32; ++visit)
    {
        MenuRig rig (visit % 8);
        rig.click ("Credits and Options");
        const auto lines = rig.text().fromFirstOccurrenceOf ("Credits|", false, false);
        const auto rest = "|" + formats[visit % 8] + "first|second|Visit orvex-audio.example|Back";
        EXPECT_TRUE (lines.endsWith (rest)) << lines;
        auto names =
            juce::StringArray::fromTokens (lines.dropLastCharacters (rest.length()).replace ("|", ", "), ",", "");
        names.trim(), orders.insert (names.joinIntoString (", "));
        names.sort (false), people.insert (names.joinIntoString (", "));
    }
    EXPECT_TRUE (orders.size() > 1 && people.size() == 1);
    EXPECT_TRUE (people.begin()->startsWith ("Extra One, Extra Two, The Duo Judge developers, The "));
}

TEST (MenuTest, OpensTheManualOrSaysWhereItIsMissing)
{
    MenuRig rig;
    const auto folder = platform::getUserDocumentsFolder();
    const auto manual = folder.getChildFile ("Duo Judge Manual.pdf");
    writeSettingText ("Install Folder", folder.getFullPathName());

    for (const auto& [exists, works] : { std::pair (false, true), { true, false }, { true, true } })
    {
        exists ? (void) manual.create() : void();
        rig.viewerWorks = works, rig.opened.clear(), rig.click ("Open manual");
        EXPECT_EQ (rig.opened.joinIntoString (" "), exists ? juce::URL (manual).toString (true) : juce::String());
        const auto complaint = "find the manual at " + manual.getFullPathName() + " You may need";
        EXPECT_EQ (rig.text().replace ("|", " ").contains (complaint), ! exists || ! works) << rig.text();
        EXPECT_EQ (rig.text() == kMainMenu, exists && works);
        rig.text() == kMainMenu ? void() : rig.click ("Ok");
    }
}

TEST (MenuTest, LeadsNowhereOutsideAtAVenue)
{
    MenuRig rig;
    rig.isVenueVersion = true, rig.editor.resized();
    EXPECT_EQ (rig.text(), "Version 1.1.2.0 64bit (VENUE)|Built in " + kYear + "|Credits and Options| Close ");
    rig.click ("Credits and Options");
    EXPECT_TRUE (rig.text().endsWith ("second|Back"));
}

TEST (UpdateCheckTest, TellsWhatTheServersListSays)
{
    const auto *newer = "A newer version", *same = "You have the latest", *older = "You have a pre-release",
               *error = "There was an error";
    MenuRig rig;

    for (const auto& [reply, says, isSlow] : {
             std::tuple ("VERSION_Other,9.9.9.9,VERSION_DuoJudge,1.1.10.0", newer, false),
             { "VERSION_DuoJudge,1.1.2,VERSION_DuoJudge,2.0.0.0", same, false },
             { "VERSION_DuoJudge,1.1.1.999\n", older, false },
             { "NEWS,\"VERSION_DuoJudge,9\",VERSION_DuoJudge", older, false },   // the key last, without a value
             { "VERSION_DuoJudge,1.0.999.999", older, false },
             { "", error, false },
             { "<p>VERSION_DuoJudge,9.0.0.0</p>,version_duojudge,9", error, false },
             { "VERSION_DuoJudge,1.2.0.0", newer, true },
             { static_cast<const char*> (nullptr), error, false },   // refused
         })
    {
        Server server (reply, isSlow), again ("VERSION_DuoJudge,1.1.2.0");
        const hotLinks::ScopedServer redirect (server.base);
        rig.click ("Check for updates");
        EXPECT_TRUE (rig.text().startsWith (says)) << (reply != nullptr ? reply : "refused") << ": " << rig.text();
        const hotLinks::ScopedServer retry (again.base);
        rig.click (says == error ? "Retry|Ok" : says == newer ? "Back" : "Ok");
        EXPECT_EQ (rig.text(), kMainMenu);
    }
    EXPECT_TRUE (rig.opened.isEmpty());
}

TEST (HotLinkTest, TellsTheServerWhoAsks)
{
    MenuRig rig;
    Server server ("VERSION_DuoJudge,2");
    const juce::String rest (
        "hotlink.php?id=Duo Judge&version=1.1.2.0&hotlink=KEY&ls=1&format=WIN_VST3&procdepth=3264");
    EXPECT_EQ (hotLinks::makeHotLink (rig, "KEY"), "https://orvex-audio.example/" + rest);
    const hotLinks::ScopedServer redirect (server.base);
    rig.click ("Credits and Options|Visit orvex-audio.example|Check for updates|Visit 'My Downloads'");
    EXPECT_EQ (rig.text(), kMainMenu);
    const auto link = server.base + rest.replace (" ", "%20");
    EXPECT_EQ (rig.opened[0], link.replace ("KEY", "BACK_BUTTON_NORMAL"));
    EXPECT_EQ (rig.opened[1], link.replace ("KEY", "DOWNLOAD_CR"));
}
