// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/ParamOrigin.h"

#include <juce_data_structures/juce_data_structures.h>

class OxJuceProcessorBase;

/** One parameter change as an undo step. */
class OxJuceUndoableAction : public juce::UndoableAction
{
public:
    /** @param processorToChange not owned; null makes `perform` and `undo` fail
        @param newOrigin where the change comes from when it is performed for the first time
        @param performed the change was made already, so that it is only to be kept */
    OxJuceUndoableAction (OxJuceProcessorBase* processorToChange, int id, float valueBefore, float valueAfter,
                          bool tellHost, ParamOrigin newOrigin, bool performed = false);

    bool perform() override;
    bool undo() override;

    /** Joins a following change of the same parameter, so that a drag leaves one step from its begin to its end. */
    juce::UndoableAction* createCoalescedAction (juce::UndoableAction* next) override;

private:
    OxJuceProcessorBase* processor;
    int paramId;
    float oldValue, newValue;
    bool notifyHost;
    ParamOrigin origin;
    bool isDone;
};
