// SPDX-License-Identifier: GPL-3.0-or-later
// Programs: how they are filled, chosen and named.
#include "framework/OxJuceProcessorBase.h"

namespace
{

std::size_t programOrFirst (int index)
{
    return index >= 0 && index < kMaxPrograms ? static_cast<std::size_t> (index) : 0;
}

}   // namespace

void OxJuceProcessorBase::fillPrograms()
{
    const auto first = numFactoryPrograms + numUserPrograms;

    for (int index = first; fillsUserPrograms && index < numPrograms; ++index)
    {
        auto& program = programs[static_cast<std::size_t> (index)];
        captureParamSet (program);
        program.name = "User" + juce::String (index - first + 1).paddedLeft ('0', 2);
    }

    numUserPrograms = numPrograms - numFactoryPrograms;
}

void OxJuceProcessorBase::setCurrentProgram (int index)
{
    if (index >= 0 && index < kMaxPrograms)
        currentProgram = index;

    useCurrentProgram (ParamOrigin::preset);
}

void OxJuceProcessorBase::useCurrentProgram (ParamOrigin origin)
{
    applyParamSet (programs[static_cast<std::size_t> (getCurrentProgramIndex())], false, origin);
    guiUpdatePending = true;
}

const juce::String OxJuceProcessorBase::getProgramName (int index)
{
    const juce::ScopedLock lock (keptLock);
    return programs[programOrFirst (index)].name;
}

void OxJuceProcessorBase::changeProgramName (int index, const juce::String& name)
{
    {
        const juce::ScopedLock lock (keptLock);
        programs[programOrFirst (index)].name = name;
    }

    guiUpdatePending = true;
}
