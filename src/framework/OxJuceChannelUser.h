// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** Marks everything that works with the channel layout: the processor, the editor and its controls, the observers. */
class OxJuceChannelUser
{
};
