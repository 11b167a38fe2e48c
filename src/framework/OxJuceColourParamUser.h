// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** Marks what takes its colours from parameters. */
class OxJuceColourParamUser
{
};
