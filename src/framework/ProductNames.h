// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** The texts by which the framework knows the one product it is linked into, and where its maker is found. */
struct ProductNames
{
    const char* settings;   // in settings and in preset folders
    const char* brief;
    const char* display;   // in the menu and in messages
    const char* version;
    const char* maker;
    const char* server;    // where the hot links lead: a secure address that ends in a slash
    const char* webSite;   // as people read it
    const char* support;   // an address for mail
};

/** Defined by the product [any thread]. */
const ProductNames& getProductNames() noexcept;
