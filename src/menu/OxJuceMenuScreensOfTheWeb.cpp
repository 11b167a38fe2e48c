// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/ProductNames.h"
#include "framework/Settings.h"
#include "gui/OxJuceEditorBase.h"
#include "menu/HotLinks.h"
#include "menu/OxJuceMenuScreens.h"
#include "menu/VersionList.h"
#include "platform/Files.h"
#include "platform/Viewer.h"

namespace
{

/** Paragraphs of text with a gap below each. */
void addParagraphs (OxJuceMenu& menu, std::initializer_list<juce::String> paragraphs)
{
    for (const auto& text : paragraphs)
    {
        menu.addWrappedText (text);
        menu.cursorY += OxJuceMenu::kGap;
    }
}

/** The manual's path, in this system's spelling. */
juce::String getNativeManualPath()
{
    return getManualPath().replaceCharacter ('\\', '/');
}

struct OxJuceMenuScreenOpenManualError : OxJuceMenuScreen
{
    void build (OxJuceMenu& menu) override
    {
        menu.addWrappedText ("I'm sorry, I wasn't able to find the manual at " + getNativeManualPath());
        addParagraphs (menu, { juce::String ("You may need to re-run the installer for this plug-in. If that doesn't "
                                             "help please email ") +
                               getProductNames().support });
        menu.addMenuItem<OxJuceMenuScreenMainMenu> ("Ok");
    }
};

struct OxJuceMenuScreenOpenMyDownloads : OxJuceMenuScreen
{
    void build (OxJuceMenu& menu) override
    {
        hotLinks::openHotLink (menu.getEditor().getOwner(), hotLinks::kDownloads, true, false);
        menu.setNextScreen<OxJuceMenuScreenMainMenu>();
    }
};

struct OxJuceMenuScreenNewerVersionAvailable : OxJuceMenuScreen
{
    void build (OxJuceMenu& menu) override
    {
        addParagraphs (menu,
                       { "A newer version of this plug-in is available.",
                         "To download the latest version, visit your account page by clicking on the link below." });
        menu.addMenuItem<OxJuceMenuScreenOpenMyDownloads> ("Visit 'My Downloads'");
        menu.addMenuItem<OxJuceMenuScreenMainMenu> ("Back");
    }
};

struct OxJuceMenuScreenHaveCurrentVersion : OxJuceMenuScreen
{
    void build (OxJuceMenu& menu) override
    {
        addParagraphs (menu, { "You have the latest release version of this plug-in installed." });
        menu.addMenuItem<OxJuceMenuScreenMainMenu> ("Ok");
    }
};

struct OxJuceMenuScreenHavePreReleaseVersion : OxJuceMenuScreen
{
    void build (OxJuceMenu& menu) override
    {
        addParagraphs (menu, { juce::String ("You have a pre-release or beta version of this plug-in installed. If you "
                                             "discover any issues, please email ") +
                                   getProductNames().support,
                               "As this software has not been officially released, it is recommended that you do not "
                               "use it in a production environment." });
        menu.addMenuItem<OxJuceMenuScreenMainMenu> ("Ok");
    }
};

struct OxJuceMenuScreenErrorContactingVersionServer : OxJuceMenuScreen
{
    void build (OxJuceMenu& menu) override
    {
        addParagraphs (menu, { "There was an error contacting the version server. Please make sure you are connected "
                               "to the internet and then try again." });
        menu.addMenuItem<OxJuceMenuScreenCheckForUpdates> ("Retry");
        menu.addMenuItem<OxJuceMenuScreenMainMenu> ("Back");
    }
};

}   // namespace

void OxJuceMenuScreenOpenManual::build (OxJuceMenu& menu)
{
    if (platform::openForUser (juce::URL (platform::getFileAt (getManualPath()))))
        menu.setNextScreen<OxJuceMenuScreenMainMenu>();
    else
        menu.setNextScreen<OxJuceMenuScreenOpenManualError>();
}

void OxJuceMenuScreenOpenCompanyWebSite::build (OxJuceMenu& menu)
{
    hotLinks::openHotLink (menu.getEditor().getOwner(), hotLinks::kWebSite, true, false);
    menu.setNextScreen<OxJuceMenuScreenMainMenu>();
}

void OxJuceMenuScreenCheckForUpdates::build (OxJuceMenu& menu)
{
    const auto reply = hotLinks::openHotLink (menu.getEditor().getOwner(), hotLinks::kGetVersions, false, true);

    switch (versionList::judge (reply, getProductNames().brief, getProductNames().version))
    {
        case versionList::Verdict::unknown:
            return menu.setNextScreen<OxJuceMenuScreenErrorContactingVersionServer>();
        case versionList::Verdict::newer:
            return menu.setNextScreen<OxJuceMenuScreenNewerVersionAvailable>();
        case versionList::Verdict::current:
            return menu.setNextScreen<OxJuceMenuScreenHaveCurrentVersion>();
        case versionList::Verdict::preRelease:
            return menu.setNextScreen<OxJuceMenuScreenHavePreReleaseVersion>();
    }
}
