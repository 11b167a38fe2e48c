// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/DuoJudgeEditor.h"
#include "engine/DuoJudgeProcessor.h"

juce::AudioProcessorEditor* DuoJudgeProcessor::createEditor()
{
    const auto markChanged = [this] (int firstId, int count)
    {
        for (int paramId = firstId; paramId < firstId + count; ++paramId)
            parameter (paramId).changed = true;
    };
    markChanged (0, getNumParameters());
    markChanged (kPersistentIdBase, getNumPersistentParams());
    markChanged (kTransientIdBase, getNumTransientParams());

    return new DuoJudgeEditor (*this);
}
