// SPDX-License-Identifier: GPL-3.0-or-later
// The history of what a user did, and the other side of an A/B compare of all parameters.
#include "framework/OxJuceABUndoableAction.h"
#include "framework/OxJuceProcessorBase.h"

using ABAction = OxJuceABUndoableAction;

bool OxJuceProcessorBase::performUndoable (juce::UndoableAction* action)
{
    std::unique_ptr<juce::UndoableAction> owned (action);
    const juce::ScopedLock lock (undoLock);

    if (replaysStep)
        return owned->perform();

    return ! writesAreConsequences() && juce::UndoManager::perform (owned.release());
}

bool OxJuceProcessorBase::writesAreConsequences() const
{
    return isPerformingUndoRedo() || loadingHere == this;
}

void OxJuceProcessorBase::beginNewTransaction (const juce::String& name)
{
    const juce::ScopedLock lock (undoLock);
    juce::UndoManager::beginNewTransaction (name);
}

// The sets are copied before the lock is taken, so that a write of the audio thread waits for no more than the swap itself.
void OxJuceProcessorBase::toggleAlternate (float value)
{
    const auto id = getAbParam();
    performUndoable (new ABAction (this, ABAction::swapSides, id, parameter (id).value, value, copyCurrentProgram(),
                                   alternateParams));
}

void OxJuceProcessorBase::copyToAlternate (float value)
{
    const auto id = getAtoBParam();
    performUndoable (new ABAction (this, ABAction::copyToAlternate, id, parameter (id).value, value,
                                   copyCurrentProgram(), alternateParams));
}

OxParamSet OxJuceProcessorBase::copyCurrentProgram()
{
    const juce::ScopedLock lock (keptLock);
    return programs[static_cast<std::size_t> (getCurrentProgramIndex())];
}

void OxJuceProcessorBase::setSides (const OxParamSet& live, const OxParamSet& alternate)
{
    // What a hook changes as a consequence is in the set already.
    const juce::ScopedValueSetter<const OxJuceProcessorBase*> loading (loadingHere, this);

    for (int id = 0; id < numParams; ++id)
    {
        const auto index = static_cast<std::size_t> (id);
        setParamDirect (id, live.params[index].value, true);
        alternateParams.params[index].value = alternate.params[index].value;
    }
}
