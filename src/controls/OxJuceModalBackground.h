// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceButton.h"

/** The two panels behind the menu: one darkens the editor and swallows its clicks, the other carries the menu. */
class OxJuceModalBackground
{
public:
    OxJuceModalBackground();

    /** Lays both over an editor: the first covers it, the second is a column in its middle. Null changes nothing. */
    void setEditor (const OxJuceEditorBase* editor);

    OxJuceButton backgroundButton { "Modal Background 1" }, panelButton { "Modal Background 2" };
};
