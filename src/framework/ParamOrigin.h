// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** Where a write of a parameter comes from.

    The first, second and last are single changes, from which others may follow. All others bring a whole set of values, or a
    moment of the history, that holds what followed already: a hook derives nothing more from them. */
enum class ParamOrigin
{
    host,         // its automation, or a control of its own
    user,         // a control or a command of the window
    load,         // a saved state
    swap,         // the other side of an A/B compare
    preset,       // a preset or program was recalled
    reset,        // back to the preset
    defaults,     // what a new instance begins with
    undo,         // undo or redo replays a step
    consequence   // of another write, or of what sounds
};
