// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/DuoJudgeProcessor.h"

namespace
{

/** A plain panel in the size of the window. */
class PlainEditor : public juce::AudioProcessorEditor
{
public:
    explicit PlainEditor (DuoJudgeProcessor& judge) : AudioProcessorEditor (judge) { setSize (535, 267); }

    void paint (juce::Graphics& graphics) override { graphics.fillAll (juce::Colours::grey); }
};

}   // namespace

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

    return new PlainEditor (*this);
}
