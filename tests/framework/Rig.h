// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/DuoJudgeProcessor.h"
#include "platform/KnownFolders.h"

#include <gtest/gtest.h>

/** The product in a host that keeps what it is told, with no timer and with the manager of one folder, if one is there. */
struct Rig : platform::ScopedCommonProgramFilesFolder, DuoJudgeProcessor, juce::AudioProcessorListener
{
    explicit Rig (int numChannels = 2, const char* folder = "/nowhere", int type = typeVst3) :
        ScopedCommonProgramFilesFolder (juce::File (folder)), DuoJudgeProcessor (type)
    {
        stopTimer();
        setPlayConfigDetails (numChannels, numChannels, 44100.0, 512);
        prepareToPlay (44100.0, 512);
        addListener (this);
    }
    void parameterChanged (int param, ParamOrigin origin) override
    {
        const char* const names[] {
            "host", "user", "load", "swap", "preset", "reset", "defaults", "undo", "consequence"
        };
        ++hooks;

        if (origins != nullptr)
            *origins << param << names[static_cast<int> (origin)] << " ";

        DuoJudgeProcessor::parameterChanged (param, origin);
    }
    bool updateFromParams() override { return DuoJudgeProcessor::updateFromParams() && updateSucceeds; }
    void processAudio (juce::AudioSampleBuffer& block, juce::MidiBuffer&) override
    {
        heard << juce::String (blockStartSample) << "+" << block.getNumSamples() << " ";
        DuoJudgeProcessor::processAudio (block, midi);
    }
    void audioProcessorParameterChanged (AudioProcessor*, int param, float v) override
    {
        told << param << "=" << v << " ";
    }
    void audioProcessorParameterChangeGestureBegin (AudioProcessor*, int param) override { told << param << "< "; }
    void audioProcessorParameterChangeGestureEnd (AudioProcessor*, int param) override { told << param << "> "; }
    void audioProcessorChanged (AudioProcessor*, const juce::AudioProcessorListener::ChangeDetails&) override {}

    juce::String told, heard;   // to the host; by the product, as "position+length "
    juce::String* origins = nullptr;
    juce::MidiBuffer midi;
    std::atomic<int> hooks { 0 };
    bool updateSucceeds = true;
};
