// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/OxParamRecord.h"

#include <juce_data_structures/juce_data_structures.h>

class OxJuceProcessorBase;

/** A swap of the live parameters with the alternate side, or a copy of them to it, as an undo step [message thread].

    Both sides are held as they were when the action was made, so that an undo brings back that moment whatever was edited
    in between. */
class OxJuceABUndoableAction : public juce::UndoableAction
{
public:
    enum Mode : int
    {
        swapSides = 0,
        copyToAlternate = 1
    };

    /** @param processorToChange not owned; null makes `perform` and `undo` fail
        @param actionMode a `Mode`; any other number makes them fail too
        @param id the parameter that tells which side is seen; only a swap writes it
        @param live, alternate the two sides as they are now */
    OxJuceABUndoableAction (OxJuceProcessorBase* processorToChange, int actionMode, int id, float valueBefore,
                            float valueAfter, const OxParamSet& live, const OxParamSet& alternate);

    bool perform() override;
    bool undo() override;

private:
    bool apply (float value, const OxParamSet& live, const OxParamSet& alternate);

    OxJuceProcessorBase* processor;
    int mode;
    int paramId;
    float oldValue, newValue;
    OxParamSet currentParams, alternateCopy;
};
