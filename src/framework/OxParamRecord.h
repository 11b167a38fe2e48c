// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Relaxed.h"

#include <array>

#include <juce_core/juce_core.h>

constexpr int kMaxParams = 3000;          // capacity of one parameter set
constexpr int kMaxPrograms = 46;          // capacity of the program array
constexpr int kPersistentIdBase = 9000;   // first id of the machine-wide group
constexpr int kTransientIdBase = 9100;    // first id of the group that is never saved
constexpr int kNoParam = 9999;            // the id that stands for no parameter at all

constexpr float kNeverWritten = -1.0f;   // as previous value

/** One parameter's storage. Any thread reads and writes it without a lock; what it reads may be one tick old. */
struct OxParamRecord
{
    Relaxed<float> value = 0.0f;                    // normalised, 0 to 1
    Relaxed<float> defaultValue = 0.0f;             // what the parameter was added with
    Relaxed<float> previousValue = kNeverWritten;   // before the last write
    Relaxed<bool> changed = true;                   // since the editor cleared the flags
    Relaxed<bool> editedByGui = false;              // a gesture on a bound control is under way
};

/** A named set of parameters; copying it copies the name and all records. */
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
