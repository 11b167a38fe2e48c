// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_data_structures/juce_data_structures.h>

class OxJuceProcessorBase;

/** One step through the programs, or through preset files where a product keeps its presets there, as an undo step. */
class OxJucePresetNavUndoableAction : public juce::UndoableAction
{
public:
    enum Mode : int
    {
        previous = 0,
        next = 1,
        other = 2   // to any program or file
    };

    /** A step between programs.
        @param owner      not owned; null makes `perform` and `undo` fail
        @param typeOfStep one of `Mode`; another number makes them fail as well */
    OxJucePresetNavUndoableAction (OxJuceProcessorBase* owner, int typeOfStep, int programBefore, int programAfter);

    /** A step between files. */
    OxJucePresetNavUndoableAction (OxJuceProcessorBase* owner, int typeOfStep, const juce::String& folderBefore,
                                   const juce::String& fileBefore, const juce::String& folderAfter,
                                   const juce::String& fileAfter);

    bool perform() override;
    bool undo() override;

private:
    bool goTo (int program, const juce::String& folder, const juce::String& file);

    OxJuceProcessorBase* processor;
    int mode;
    int oldProgram = 0, newProgram = 0;
    juce::String oldFolder, oldFile, newFolder, newFile;
};
