// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/OxJuceUndoableAction.h"

#include "framework/OxJuceProcessorBase.h"

OxJuceUndoableAction::OxJuceUndoableAction (OxJuceProcessorBase* processorToChange, int id, float valueBefore,
                                            float valueAfter, bool tellHost) :
    processor (processorToChange),
    paramId (id), oldValue (valueBefore), newValue (valueAfter), notifyHost (tellHost)
{
}

bool OxJuceUndoableAction::perform()
{
    if (processor == nullptr)
        return false;

    processor->setParamDirect (paramId, newValue, notifyHost);
    return true;
}

bool OxJuceUndoableAction::undo()
{
    if (processor == nullptr)
        return false;

    processor->setParamDirect (paramId, oldValue, notifyHost);
    return true;
}

juce::UndoableAction* OxJuceUndoableAction::createCoalescedAction (juce::UndoableAction* next)
{
    const auto* const change = dynamic_cast<OxJuceUndoableAction*> (next);

    if (change == nullptr || change->paramId != paramId || change->newValue == newValue)
        return nullptr;

    return new OxJuceUndoableAction (processor, paramId, oldValue, change->newValue, notifyHost);
}
