// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** Begins the declaration of what hosts look up in the shared object; `Exports.map` lists the names as well. */
#define DUO_EXPORT extern "C" [[gnu::visibility ("default")]]
