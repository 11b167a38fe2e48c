// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Judge.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace desk
{

/** Keys for what a listener does most, beside the comparator's own window.

    Its buttons lead from view to view, and what they write tells the desk, like any host, which view that is: a key does
    only what the view offers. */
class JudgeKeys : private juce::AudioProcessorParameter::Listener
{
public:
    explicit JudgeKeys (ComparisonGraph& comparison);
    ~JudgeKeys() override;

    /** Does what a key stands for, if the view offers it [message thread]. @returns whether the key stands for anything */
    bool actOnKey (const juce::KeyPress& key);

private:
    void parameterValueChanged (int index, float value) override;
    void parameterGestureChanged (int, bool) override {}

    ComparisonGraph& graph;
    Judge judge;
    Relaxed<View> view = View::normal;   // written by whoever moves the parameters
};

}   // namespace desk
