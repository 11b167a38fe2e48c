// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class OxJuceMenu;

/** One screen of the menu: made for a single show, and without a state. All on the message thread. */
class OxJuceMenuScreen
{
public:
    virtual ~OxJuceMenuScreen() = default;

    /** Adds the content below the header. A screen that only acts does so here and names the next one, so that it is never
        seen itself. */
    virtual void build (OxJuceMenu& menu) = 0;

    /** Adds the header that all screens share, and then the content. */
    virtual void show (OxJuceMenu& menu);
};
