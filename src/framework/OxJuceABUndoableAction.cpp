// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/OxJuceABUndoableAction.h"

#include "framework/OxJuceProcessorBase.h"

OxJuceABUndoableAction::OxJuceABUndoableAction (OxJuceProcessorBase* processorToChange, int actionMode, int id,
                                                float valueBefore, float valueAfter, const OxParamSet& live,
                                                const OxParamSet& alternate) :
    processor (processorToChange),
    mode (actionMode), paramId (id), oldValue (valueBefore), newValue (valueAfter), currentParams (live),
    alternateCopy (alternate)
{
}

bool OxJuceABUndoableAction::perform()
{
    return apply (newValue, alternateCopy, currentParams);
}

bool OxJuceABUndoableAction::undo()
{
    return apply (oldValue, currentParams, alternateCopy);
}

bool OxJuceABUndoableAction::apply (float value, const OxParamSet& live, const OxParamSet& alternate)
{
    if (processor == nullptr || (mode != swapSides && mode != copyToAlternate))
        return false;

    if (mode == copyToAlternate)
    {
        processor->alternateParams = alternate;
    }
    else
    {
        processor->setParamDirect (paramId, value, false, processor->originOfStep (ParamOrigin::swap));
        processor->setSides (live, alternate);
    }

    processor->tellDisplayChanged();
    processor->guiUpdatePending = true;
    return true;
}
