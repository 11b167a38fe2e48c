// SPDX-License-Identifier: GPL-3.0-or-later
// Preset files, the steps between presets of either kind, and the defaults that new instances begin with.
#include "framework/OxJucePresetFolders.h"
#include "framework/OxJucePresetNavUndoableAction.h"
#include "framework/OxJuceProcessorBase.h"
#include "framework/Settings.h"

namespace
{

constexpr auto* kDefaultFolderKey = "OJDEFAULT_PRESET_FOLDER";
constexpr auto* kDefaultFileKey = "OJDEFAULT_PRESET_FILE";
constexpr float kNoDefault = -100000000.0f;

constexpr double kModifiedFrom = 0.000001;   // a smaller difference is none

}   // namespace

juce::String OxJuceProcessorBase::getDefaultKey (int id)
{
    return "OJDEFAULT " + getParameterName (id);
}

// Files ---------------------------------------------------------------------------------------------------------------

bool OxJuceProcessorBase::applyPresetState()
{
    return presetState.load() && presetState.apply();
}

bool OxJuceProcessorBase::loadPreset (const juce::String& folder, const juce::String& file)
{
    presetState.init (this, folder, file);

    if (! applyPresetState())
        return false;

    if (presetState.getFileVersion() == getParamMapVersion())
        return true;

    convertParamMap (presetState.getFileVersion());
    presetState.takeConverted();
    return true;
}

void OxJuceProcessorBase::selectDefaultPreset()
{
    presetState = OxJucePresetFolders (*this).findCurrentPreset ({}, {});
    applyPresetState();
}

void OxJuceProcessorBase::loadNamedDefaultPreset()
{
    int index = -1;
    presetState = OxJucePresetFolders (*this).findDefaultPreset (index);

    if (index >= 0)
        applyPresetState();
}

bool OxJuceProcessorBase::reloadPreset()
{
    return presetState.load();
}

void OxJuceProcessorBase::nextPreset()
{
    presetState = OxJucePresetFolders (*this).findNextPreset (presetState.getFolder(), presetState.getEncodedName());
    applyPresetState();
}

void OxJuceProcessorBase::previousPreset()
{
    presetState =
        OxJucePresetFolders (*this).findPreviousPreset (presetState.getFolder(), presetState.getEncodedName());
    applyPresetState();
}

bool OxJuceProcessorBase::isPresetModified()
{
    for (int id = 0; id < getNumParameters(); ++id)
    {
        const auto saved = presetState.getSavedValue (id);

        if (saved > OxJucePreset::kNotInFile && ! isParamExcludedFromPresets (id) && isParamCompared (id) &&
            std::abs (static_cast<double> (parameter (id).value) - saved) > kModifiedFrom)
            return true;
    }

    return false;
}

void OxJuceProcessorBase::numChannelsChanged()
{
    delayLines.make (getTotalNumInputChannels());

    if (stateRestored && reloadPreset())
    {
        changeProgramName (getCurrentProgram(), presetState.getName());
        tellDisplayChanged();
        return;
    }

    if (presetState.getFolder().isEmpty() && presetState.getEncodedName().isEmpty())
    {
        int index = -1;
        OxJucePresetFolders (*this).findDefaultPreset (index);
        index < 0 ? selectDefaultPreset() : loadNamedDefaultPreset();
    }

    const HostNotices::ScopedLock lock (hostNotices, undoLock);
    recordSoundChanges();
    unrecorded.clear();
    clearUndoHistory();
}

void OxJuceProcessorBase::savePresetPlace (juce::XmlElement& xml)
{
    xml.setAttribute ("FOLDERNAME", presetState.getFolder());
    xml.setAttribute ("FILENAME", presetState.getName());
}

void OxJuceProcessorBase::loadPresetPlace (const juce::XmlElement& xml)
{
    const auto folder = xml.getStringAttribute ("FOLDERNAME"), file = xml.getStringAttribute ("FILENAME");

    if ((folder.isEmpty() || file.isEmpty()) && file != OxJucePresetFolders::kDefaultName)
        return;

    presetState.setPlace (folder, file);
    reloadPreset();
    changeProgramName (getCurrentProgram(), file);
    tellDisplayChanged();
}

// Steps ---------------------------------------------------------------------------------------------------------------

void OxJuceProcessorBase::stepPreset (bool forward)
{
    using Step = OxJucePresetNavUndoableAction;
    const auto mode = forward ? Step::next : Step::previous;

    if (! usesPresetFiles)
    {
        const int program = currentProgram;
        performUndoable (new Step (this, mode, program, (program + (forward ? 1 : -1) + numPrograms) % numPrograms));
        return;
    }

    const HostNotices::ScopedLock lock (hostNotices, undoLock);

    if (isPerformingUndoRedo())
        return;   // the step would be dropped, and the current preset must not move without it

    const OxJucePresetFolders folders (*this);
    const auto folder = presetState.getFolder(), file = presetState.getName();
    presetState = forward ? folders.findNextPreset (folder, file) : folders.findPreviousPreset (folder, file);
    performUndoable (new Step (this, mode, folder, file, presetState.getFolder(), presetState.getName()));
}

void OxJuceProcessorBase::goToPreset (const juce::String& folder, const juce::String& file)
{
    if (! isPerformingUndoRedo())
    {
        loadPreset (folder, file);
        return;
    }

    // What the step changed stands beside it in the history, and so does what a user had changed before it. The preset is
    // loaded all the same, so that a reset returns to it, and then the history's values are put back.
    const auto live = copyCurrentProgram();
    {
        const juce::ScopedValueSetter<bool> replaying (replaysStep, true);
        loadPreset (folder, file);
    }

    for (int id = 0; id < numParams; ++id)
        if (const float value = live.params[static_cast<std::size_t> (id)].value;
            isParamUndoable (id) && parameter (id).value != value)
            setParamDirect (id, value, true, ParamOrigin::undo);
}

// Stored defaults -----------------------------------------------------------------------------------------------------

void OxJuceProcessorBase::saveAsDefault()
{
    for (int id = 0; id < numParams; ++id)
        writeSettingFloat (getDefaultKey (id), parameter (id).value);

    if (! usesPresetFiles)
        return;

    writeSettingText (kDefaultFolderKey, presetState.getFolder());
    writeSettingText (kDefaultFileKey, presetState.getName());
}

bool OxJuceProcessorBase::loadDefault()
{
    auto found = false;

    for (int id = 0; id < numParams; ++id)
    {
        if (const auto value = readSettingFloat (getDefaultKey (id), kNoDefault); value != kNoDefault)
        {
            setParamUndoable (id, value, true, ParamOrigin::defaults);
            found = true;
        }
    }

    if (! usesPresetFiles)
        return found;

    if (const auto file = readSettingText (kDefaultFileKey); file.isNotEmpty())
    {
        changeProgramName (getCurrentProgram(), file);
        tellDisplayChanged();
        presetState.setPlace (readSettingText (kDefaultFolderKey), file);
    }

    numUserPrograms = 1;
    return found;
}

bool OxJuceProcessorBase::hasStoredDefaults()
{
    for (int id = 0; id < numParams; ++id)
        if (readSettingFloat (getDefaultKey (id), kNoDefault) != kNoDefault)
            return true;

    return false;
}

void OxJuceProcessorBase::eraseStoredDefaults()
{
    for (int id = 0; id < numParams; ++id)
        deleteSetting (getProductSettingsPath(), getDefaultKey (id));
}

bool OxJuceProcessorBase::writeDefaultPreset()
{
    OxJucePreset preset (this, {}, OxJucePresetFolders::kDefaultName);
    return preset.capture() && preset.save();
}
