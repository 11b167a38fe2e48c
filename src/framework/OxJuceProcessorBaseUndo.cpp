// SPDX-License-Identifier: GPL-3.0-or-later
// The history of what a user did, and the other side of an A/B compare of all parameters.
#include "framework/OxJuceABUndoableAction.h"
#include "framework/OxJuceProcessorBase.h"

using ABAction = OxJuceABUndoableAction;

bool OxJuceProcessorBase::performUndoable (juce::UndoableAction* action)
{
    std::unique_ptr<juce::UndoableAction> owned (action);
    const HostNotices::ScopedLock lock (hostNotices, undoLock);

    if (replaysStep)
        return owned->perform();

    if (isPerformingUndoRedo())
        return false;

    recordSoundChanges();
    recordUnrecorded();
    return juce::UndoManager::perform (owned.release());
}

ParamOrigin OxJuceProcessorBase::originOfStep (ParamOrigin whenNew) const
{
    return isPerformingUndoRedo() ? ParamOrigin::undo : whenNew;
}

void OxJuceProcessorBase::beginNewTransaction (const juce::String& name)
{
    const HostNotices::ScopedLock lock (hostNotices, undoLock);
    recordSoundChanges();   // which belong to what was done before
    juce::UndoManager::beginNewTransaction (name);
}

void OxJuceProcessorBase::replay (bool undoes)
{
    const HostNotices::ScopedLock lock (hostNotices, undoLock);
    recordSoundChanges();

    if (! undoes)
        unrecorded.clear(), juce::UndoManager::redo();
    else if (! takeBackUnrecorded())
        juce::UndoManager::undo();

    guiUpdatePending = true;
}

void OxJuceProcessorBase::hearSoundChanges()
{
    const HostNotices::ScopedLock lock (hostNotices, undoLock);
    recordSoundChanges();
}

/** Takes what the sound has changed over into the history [holding undoLock]. A step would take away what can be redone:
    then it waits for a step of the user, which does so anyway. Until then it is undone before anything else, and a redo
    forgets it. */
void OxJuceProcessorBase::recordSoundChanges()
{
    if (isPerformingUndoRedo())
        return;   // at the next step

    takeSoundChanges ([this] (int id, float) { return hostNotices.add (HostNotices::Kind::value, id), true; });
    soundChanges.drain (
        [this] (int id, float before, float after)
        {
            auto step =
                std::make_unique<OxJuceUndoableAction> (this, id, before, after, true, ParamOrigin::consequence, true);

            if (canRedo())
                unrecorded.push_back (std::move (step));
            else
                juce::UndoManager::perform (step.release());
        });
}

/** Something new is about to be done, so that nothing can be redone any more [holding undoLock]. */
void OxJuceProcessorBase::recordUnrecorded()
{
    for (auto& step : std::exchange (unrecorded, {}))
        juce::UndoManager::perform (step.release());
}

/** @returns whether there was anything [holding undoLock]. */
bool OxJuceProcessorBase::takeBackUnrecorded()
{
    auto steps = std::exchange (unrecorded, {});
    std::for_each (steps.rbegin(), steps.rend(), [] (auto& step) { step->undo(); });
    return ! steps.empty();
}

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
    for (int id = 0; id < numParams; ++id)
    {
        const auto index = static_cast<std::size_t> (id);
        setParamDirect (id, live.params[index].value, true, originOfStep (ParamOrigin::swap));
        alternateParams.params[index].value = alternate.params[index].value;
    }
}
