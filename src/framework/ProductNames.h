// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** The texts by which the framework knows the one product it is linked into. */
struct ProductNames
{
    const char* settings;   // in settings and in preset folders
    const char* brief;
    const char* display;   // in the menu and in messages
    const char* version;
};

/** Defined by the product [any thread]. */
const ProductNames& getProductNames() noexcept;
