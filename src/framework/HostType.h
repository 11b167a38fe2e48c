// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** The host that has loaded the plug-in, as far as its program's file name tells; asked anew at each call [any thread but
    the audio thread]. */
namespace hostType
{

enum Code : int
{
    unknown = 0,
    live6 = 1,
    live7 = 2,
    live8 = 3,
    live = 4,
    audition = 5,
    premiere = 6,
    sonar8 = 8,
    sonar = 9,
    proTools = 10,
    logic = 11,
    reaper = 12,
    tracktion3 = 13,
    tracktion = 14,
    cubase4 = 15,
    cubase5 = 16,
    vstBridge = 17,
    cubase = 18,
    cubase6 = 19,
    cubase7 = 20,
    nuendo = 21,
    wavelab5 = 22,
    wavelab6 = 23,
    wavelab7 = 24,
    wavelab = 25,
    rmHost = 26,
    samplitude = 27,
    flStudio = 28,
    studioOne = 31
};

constexpr bool isAnyWavelab (int type) noexcept
{
    return type >= wavelab5 && type <= wavelab;
}

}   // namespace hostType

/** @returns one of `hostType::Code` */
int getHostType();

/** A test of its own: it also knows the name with a blank, which has no type. */
bool isProTools();
