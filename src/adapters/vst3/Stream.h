// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>
#include <pluginterfaces/base/ibstream.h>

namespace Steinberg
{
namespace Vst
{

/** Appends what the stream has left to `block`. @returns false without a stream, or for one that never ends. */
bool readAll (IBStream* stream, juce::MemoryBlock& block);

/** @returns whether the stream took the whole block. */
bool writeAll (IBStream* stream, const juce::MemoryBlock& block);

}   // namespace Vst
}   // namespace Steinberg
