// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Relaxed.h"

#include <array>

#include <juce_core/juce_core.h>

constexpr int kMaxParams = 3000;          // records in a set
constexpr int kMaxPrograms = 46;          // sets that an instance has room for
constexpr int kPersistentIdBase = 9000;   // from here on: kept by the machine
constexpr int kTransientIdBase = 9100;    // from here on: kept by nobody
constexpr int kNoParam = 9999;            // in no group

constexpr float kNeverWritten = -1.0f;   // as previous value

/** A parameter in store: single words that any thread may read and write, and that may be a tick behind each other. */
struct OxParamRecord
{
    Relaxed<float> value = 0.0f;                    // normalised, 0 to 1
    Relaxed<float> defaultValue = 0.0f;             // as the product gave it
    Relaxed<float> previousValue = kNeverWritten;   // before the last write
    Relaxed<bool> changed = true;                   // since the editor cleared the flags
    Relaxed<bool> editedByGui = false;              // held by the user, in the window
};

/** The records of a group; for a program, under its name. */
struct OxParamSet
{
    juce::String name;
    std::array<OxParamRecord, kMaxParams> params;
};

/** Whole numbers 0 to 1000 held in a parameter as thousandths, so that 1 is 0.001. */
namespace thousandths
{

constexpr int kMax = 1000;

constexpr float fromCode (int code) noexcept
{
    return static_cast<float> ((code < kMax ? code : kMax) / 1000.0);
}

/** @returns the nearest code; 0 for a value that is not a number. */
constexpr int toCode (float value) noexcept
{
    const auto scaled = static_cast<double> (value * 1000.0f) + 0.5;
    return scaled >= kMax ? kMax : scaled >= 0.0 ? static_cast<int> (scaled) : 0;
}

}   // namespace thousandths
