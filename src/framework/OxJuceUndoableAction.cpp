// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/OxJuceUndoableAction.h"

#include "framework/OxJuceProcessorBase.h"

OxJuceUndoableAction::OxJuceUndoableAction (OxJuceProcessorBase* processorToChange, int id, float valueBefore,
                                            float valueAfter, bool tellHost, ParamOrigin newOrigin, bool performed) :
    processor (processorToChange),
    paramId (id), oldValue (valueBefore), newValue (valueAfter), notifyHost (tellHost), origin (newOrigin),
    isDone (performed)
{
}

bool OxJuceUndoableAction::perform()
{
    if (processor == nullptr)
        return false;

    if (! std::exchange (isDone, false))
        processor->setParamDirect (paramId, newValue, notifyHost, processor->originOfStep (origin));

    return true;
}

bool OxJuceUndoableAction::undo()
{
    if (processor == nullptr)
        return false;

    processor->setParamDirect (paramId, oldValue, notifyHost, ParamOrigin::undo);
    return true;
}

juce::UndoableAction* OxJuceUndoableAction::createCoalescedAction (juce::UndoableAction* next)
{
    const auto* const change = dynamic_cast<OxJuceUndoableAction*> (next);

    if (change == nullptr || change->paramId != paramId || change->newValue == newValue)
        return nullptr;

    return new OxJuceUndoableAction (processor, paramId, oldValue, change->newValue, notifyHost, origin);
}
