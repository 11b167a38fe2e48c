// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** Tags the classes for which it matters how many channels there are: processor, window, observers. */
class OxJuceChannelUser
{
};
