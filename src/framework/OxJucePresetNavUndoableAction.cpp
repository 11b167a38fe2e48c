// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/OxJucePresetNavUndoableAction.h"

#include "framework/OxJuceProcessorBase.h"

OxJucePresetNavUndoableAction::OxJucePresetNavUndoableAction (OxJuceProcessorBase* owner, int typeOfStep,
                                                              int programBefore, int programAfter) :
    processor (owner),
    mode (typeOfStep), oldProgram (programBefore), newProgram (programAfter)
{
}

OxJucePresetNavUndoableAction::OxJucePresetNavUndoableAction (OxJuceProcessorBase* owner, int typeOfStep,
                                                              const juce::String& folderBefore,
                                                              const juce::String& fileBefore,
                                                              const juce::String& folderAfter,
                                                              const juce::String& fileAfter) :
    processor (owner),
    mode (typeOfStep), oldFolder (folderBefore), oldFile (fileBefore), newFolder (folderAfter), newFile (fileAfter)
{
}

bool OxJucePresetNavUndoableAction::perform()
{
    return goTo (newProgram, newFolder, newFile);
}

bool OxJucePresetNavUndoableAction::undo()
{
    return goTo (oldProgram, oldFolder, oldFile);
}

bool OxJucePresetNavUndoableAction::goTo (int program, const juce::String& folder, const juce::String& file)
{
    if (processor == nullptr || mode < previous || mode > other)
        return false;

    if (processor->keepsPresetFiles())
    {
        processor->goToPreset (folder, file);
    }
    else
    {
        processor->setCurrentProgram (program);

        for (int id = 0; id < processor->getNumParameters(); ++id)
            processor->parameter (id).changed = true;   // the controls still show the program before
    }

    processor->sendAutomatableParams();
    processor->tellDisplayChanged();
    processor->guiUpdatePending = true;
    return true;
}
