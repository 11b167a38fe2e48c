// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "FuzzTarget.h"
#include "engine/DuoJudgeProcessor.h"

/** The product without a timer, which a test would meet at a time of its own. */
struct Product : DuoJudgeProcessor
{
    Product() : DuoJudgeProcessor (typeVst3)
    {
        stopTimer();
        setPlayConfigDetails (2, 2, 48000.0, 64);
    }

    /** Does what a host, a window and a session do with the values that were read. */
    void use()
    {
        juce::AudioSampleBuffer block (2, 64);
        juce::MidiBuffer midi;
        block.clear();
        prepareToPlay (48000.0, 64);
        timerCallback();
        processBlock (block, midi);
        checkParamMapVersionCompatibility();

        for (int param = 0; param < getNumParameters(); ++param)
            getParameterText (param);
    }

    juce::MemoryBlock save()
    {
        juce::MemoryBlock state;
        getStateInformation (state);
        return state;
    }
};
