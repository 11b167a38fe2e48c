// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

class DuoJudgeProcessor;

/** Builds the processor for an adapter, which owns it [any thread but the audio thread].
    @param wrapperType the adapter's kind, as `OxJuceProcessorBase::PluginType` counts */
std::unique_ptr<DuoJudgeProcessor> createPluginFilter (int wrapperType);
