// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "menu/OxJuceMenuScreen.h"

// The screens that others lead to from afar; the rest stand beside those that lead to them. From each an item leads to
// the main menu, and from there one out.

struct OxJuceMenuScreenMainMenu : OxJuceMenuScreen
{
    void build (OxJuceMenu& menu) override;
};

/** Opens the manual, or leads to a screen that says where it is missing. */
struct OxJuceMenuScreenOpenManual : OxJuceMenuScreen
{
    void build (OxJuceMenu& menu) override;
};

struct OxJuceMenuScreenOpenCompanyWebSite : OxJuceMenuScreen
{
    void build (OxJuceMenu& menu) override;
};

/** Asks the server, waits for its reply, and leads to the screen that tells of it. */
struct OxJuceMenuScreenCheckForUpdates : OxJuceMenuScreen
{
    void build (OxJuceMenu& menu) override;
};
