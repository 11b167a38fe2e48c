// SPDX-License-Identifier: GPL-3.0-or-later
#include "menu/OxJuceMenuScreens.h"

#include "framework/ProductNames.h"
#include "gui/OxJuceEditorBase.h"

namespace
{

using Processor = OxJuceProcessorBase;
using Place = OxJuceMenu::OptionPlace;

constexpr int kCreditsColumn = 350, kNarrowEditor = 250;   // pixels

/** Whose technology lets the plug-in into its host. */
constexpr std::pair<int, const char*> kFormatCredits[] {
    { Processor::typeVst, "VST by Steinberg Media Technologies GmbH" },
    { Processor::typeAu, "AU by Apple Computer Inc" },
    { Processor::typeRtas, "AudioSuite and RTAS technology by Avid" },
    { Processor::typeAax, "AAX technology by Avid" },
    { Processor::typeAudioSuite, "AudioSuite and RTAS technology by Avid" },
    { Processor::typeVst3, "VST3 by Steinberg Media Technologies GmbH" }
};

/** Everybody, and nobody always first. */
void addCreditNames (OxJuceMenu& menu)
{
    juce::StringArray names { "The Duo Judge developers", "The sound designers", "The test listeners" };
    names.addArray (menu.getEditor().getExtraCreditNames());
    const auto namesPerLine = menu.getEditor().getWidth() < kNarrowEditor ? 2 : 3;
    juce::StringArray line;
    juce::Random random;

    while (! names.isEmpty())
    {
        const auto index = random.nextInt (names.size());
        line.add (names[index]);
        names.remove (index);

        if (line.size() == namesPerLine || names.isEmpty())
        {
            menu.addText (line.joinIntoString (", "), OxJuceMenu::kTextHeight);
            line.clear();
        }
    }
}

struct OxJuceMenuScreenCreditsAndOptions : OxJuceMenuScreen
{
    void build (OxJuceMenu& menu) override
    {
        OxJuceMenu::columnWidth = kCreditsColumn;
        auto& editor = menu.getEditor();
        const auto& processor = editor.getOwner();
        const auto sideBySide = editor.hasOptionRows();

        menu.addHeading ("Options");
        menu.addOptionSwitch ("Show profiling", processor.getProfilingParam(),
                              sideBySide ? Place::leftHalf : Place::ownLine);
        menu.addOptionSwitch ("Export Support", processor.getExportSupportParam(),
                              sideBySide ? Place::rightHalf : Place::ownLine);
        editor.addOptionRows (menu);

        menu.cursorY += OxJuceMenu::kGap;
        menu.addHeading ("Credits");
        addCreditNames (menu);
        menu.cursorY += OxJuceMenu::kGap;

        for (const auto& [type, credit] : kFormatCredits)
            if (type == processor.getPluginType())
                menu.addText (credit, OxJuceMenu::kTextHeight);

        editor.addCreditLinesFirst (menu);
        editor.addCreditLines (menu);
        menu.cursorY += OxJuceMenu::kGap;

        if (! processor.isVenueVersion)
        {
            menu.cursorY += OxJuceMenu::kGap;
            menu.addMenuItem<OxJuceMenuScreenOpenCompanyWebSite> ("Visit " + juce::String (getProductNames().webSite));
        }

        menu.cursorY += OxJuceMenu::kGap;
        menu.addMenuItem<OxJuceMenuScreenMainMenu> ("Back");
    }
};

/** Closes the menu, by its parameter. */
struct OxJuceMenuScreenPluginGui : OxJuceMenuScreen
{
    void build (OxJuceMenu& menu) override
    {
        auto& processor = menu.getEditor().getOwner();
        processor.setParamUndoable (processor.getMenuParam(), 0.0f, true);
    }
};

}   // namespace

void OxJuceMenuScreenMainMenu::build (OxJuceMenu& menu)
{
    const auto isVenue = menu.getEditor().getOwner().isVenueVersion;
    const auto year = juce::String (__DATE__).fromLastOccurrenceOf (" ", false, false);
    menu.addText ("Version " + juce::String (getProductNames().version) + " 64bit" + (isVenue ? " (VENUE)" : ""),
                  OxJuceMenu::kTextHeight);
    menu.addText ("Built in " + year, OxJuceMenu::kTextHeight);
    menu.cursorY += OxJuceMenu::kGap;
    menu.addMenuItem<OxJuceMenuScreenCreditsAndOptions> ("Credits and Options");

    if (! isVenue)
    {
        menu.addMenuItem<OxJuceMenuScreenOpenManual> ("Open manual");
        menu.addMenuItem<OxJuceMenuScreenCheckForUpdates> ("Check for updates");
    }

    menu.cursorY += OxJuceMenu::kGap;
    menu.addMenuItem<OxJuceMenuScreenPluginGui> (" Close ");
}
