// SPDX-License-Identifier: GPL-3.0-or-later
// What a host keeps of an instance in its session: the saved state, states of an earlier format, and map versions.
#include "framework/OxJuceProcessorBase.h"
#include "framework/ProductNames.h"
#include "framework/Settings.h"
#include "framework/StateFrame.h"
#include "platform/EmbeddedWindow.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace
{

constexpr auto* kRootTag = "MYPLUGINSETTINGS";
constexpr auto* kPresetFileTag = "PRESETDATA";
constexpr auto* kProgramTag = "PRESET";   // followed by the program's number
constexpr auto* kProgramName = "PRESETNAME";
constexpr auto* kCurrentProgram = "CURRENTPRESET";
constexpr auto* kForeignBytes = "LOADEDFROMPREV";
constexpr int kMaxProductAttributes = 8192;   // beside those of the programs; a pod names up to 4096 links
constexpr int kFirstMapVersion = 1;

/** Logs that a state was made with another meaning of the parameters than this build has. */
void logMapVersions (int loaded, int own)
{
    juce::Logger::writeToLog ("OxJuceEditorBase::checkParamMapVersionCompatibility: nLoadingInVersion=" +
                              juce::String (loaded) + ", nCodeVersion=" + juce::String (own));
}

}   // namespace

std::atomic<bool> OxJuceProcessorBase::newerVersionWarned { false };

void OxJuceProcessorBase::getStateInformation (juce::MemoryBlock& dest)
{
    const juce::ScopedLock lock (stateLock);
    juce::MemoryBlock block, extra;
    saveXmlState (block);
    getExtraStateBlock (extra);
    dest.append (block.getData(), block.getSize());
    dest.append (extra.getData(), extra.getSize());
}

void OxJuceProcessorBase::setStateInformation (const void* data, int size)
{
    if (data == nullptr)
        return;

    const HostNotices::ScopedLock lock (hostNotices, stateLock);
    const auto consumed = stateFrame::getFrameSize (data, size);

    if (consumed > 0)
        loadXmlState (data, consumed);

    if (size > consumed)
        setExtraStateBlock (static_cast<const char*> (data) + consumed, size - consumed);
}

void OxJuceProcessorBase::saveXmlState (juce::MemoryBlock& block)
{
    juce::XmlElement root (kRootTag);

    if (usesPresetFiles)
        savePresetPlace (*root.createNewChildElement (kPresetFileTag));

    for (int index = 0; index < numPrograms; ++index)
        saveProgram (index, *root.createNewChildElement (kProgramTag + juce::String (index)));

    root.setAttribute (kCurrentProgram, getCurrentProgram());
    writeExtraState (root);

    if (loadedFromPrev)
    {
        const juce::ScopedLock lock (keptLock);
        root.setAttribute (kForeignBytes, prevState.toBase64Encoding());
    }

    block = stateFrame::write (root);
}

void OxJuceProcessorBase::saveProgram (int index, juce::XmlElement& xml)
{
    const auto& program = programs[static_cast<std::size_t> (index)];

    for (int id = 0; id < getNumParameters(); ++id)
        xml.setAttribute (getParamKey (id), stateFrame::toText (program.params[static_cast<std::size_t> (id)].value));

    xml.setAttribute (kProgramName, getProgramName (index));
}

void OxJuceProcessorBase::loadXmlState (const void* data, int size)
{
    const auto maxAttributes = numPrograms * (getNumParameters() + 1) + kMaxProductAttributes;
    const auto root = stateFrame::read (data, size, maxAttributes);
    paramMapVersionFound = false;

    if (root != nullptr && root->getTagName().equalsIgnoreCase (kRootTag))
        loadRoot (*root);

    stateRestored = true;
}

void OxJuceProcessorBase::loadRoot (const juce::XmlElement& root)
{
    const auto current = getCurrentProgramIndex();

    if (const auto* const xml = usesPresetFiles ? root.getChildByName (kPresetFileTag) : nullptr)
        loadPresetPlace (*xml);

    for (int index = 0; index < kMaxPrograms; ++index)
        if (const auto* const xml = root.getChildByName (kProgramTag + juce::String (index)))
            loadProgram (index, *xml, index == current);

    if (const auto index = root.getIntAttribute (kCurrentProgram, 0); index >= 0 && index < kMaxPrograms)
        currentProgram = index;

    useCurrentProgram (ParamOrigin::load);
    readExtraState (root);

    // What is loaded now is this format's own: the next save keeps it, whatever came before and is answered later.
    foreignIsCurrent = false;

    if (juce::MemoryBlock foreign; stateFrame::decode (root.getStringAttribute (kForeignBytes), foreign))
    {
        const juce::ScopedLock lock (keptLock);
        prevState.swapWith (foreign);
        loadedFromPrev = true;
    }
}

void OxJuceProcessorBase::loadProgram (int index, const juce::XmlElement& xml, bool tellsHooks)
{
    if (! usesPresetFiles)
        changeProgramName (index, xml.getStringAttribute (kProgramName, getProgramName (index)));

    for (int id = 0; id < getNumParameters(); ++id)
    {
        auto& record = programs[static_cast<std::size_t> (index)].params[static_cast<std::size_t> (id)];
        const auto value = xml.getDoubleAttribute (getParamKey (id), parameter (id).defaultValue);
        record.previousValue = record.value;
        record.value = static_cast<float> (value);

        if (record.value != record.previousValue)
        {
            record.changed = true;
            pendingParameterTextId = id;
            guiUpdatePending = true;
        }

        if (! tellsHooks)
            continue;

        parameterChanged (id, ParamOrigin::load);

        if (isParameterHostVisible (id))
            hostNotices.add (HostNotices::Kind::value, id);
    }

    paramMapVersionFound = xml.hasAttribute (getParamKey (getParamMapVersionParam()));
}

void OxJuceProcessorBase::loadStream (const void* data, std::size_t size)
{
    if (stateFrame::hasMagic (data, size))
        return loadXmlState (data, static_cast<int> (std::min<std::size_t> (size, std::numeric_limits<int>::max())));

    if (data == nullptr || size == 0)
        return;

    {
        const juce::ScopedLock lock (keptLock);

        if (! prevStateStored)
            prevState.replaceAll (data, size);

        prevStateStored = true;
    }

    loadedFromPrev = true;
    foreignIsCurrent = true;
    warnIncompatibleState();
}

void OxJuceProcessorBase::saveStream (juce::MemoryBlock& dest)
{
    if (! foreignIsCurrent || *overwriteOnSave)
        return saveXmlState (dest);

    const juce::ScopedLock lock (keptLock);
    dest = prevState;
}

void OxJuceProcessorBase::warnIncompatibleState()
{
    if (incompatibleWarned.exchange (true))
        return;

    // An answer that is missing counts as no: the box may still be open or, with no screen and nobody to press a button,
    // never come up. The answer may come when this processor is gone, so it lives on its own.
    *overwriteOnSave = false;
    const juce::String name = getProductNames().display;
    showBox (name + " Warning Info",
             "This session or preset was saved with an earlier version of " + name +
                 ".\nParameters for this version (" + getProductNames().version + ") of " + name +
                 " will be set as default.\n"
                 "Press OK to overwrite on save (this cannot be undone), press CANCEL to keep state unchanged.",
             [answer = overwriteOnSave] (bool ok) { *answer = ok; });
}

void OxJuceProcessorBase::checkParamMapVersionCompatibility()
{
    const auto persistentId = getPersistentParamMapVersionParam(), id = getParamMapVersionParam();

    if (! persistentMapVersionFound)
    {
        // The record holds this version from the start, so that a write through it alone would not reach the settings.
        setParamUndoable (persistentId, thousandths::fromCode (kFirstMapVersion), true, ParamOrigin::load);
        writeSettingFloat (getParamKey (persistentId), parameter (persistentId).value);
        persistentMapVersionFound = true;
    }

    if (const auto own = getPersistentParamMapVersion(); getParamCode (persistentId) < own)
    {
        for (int version = getParamCode (persistentId); version < own; ++version)
            convertPersistentParamMap (version);

        setParamUndoable (persistentId, thousandths::fromCode (own), true, ParamOrigin::load);
    }

    if (! paramMapVersionFound)
    {
        setParamUndoable (id, thousandths::fromCode (kFirstMapVersion), true, ParamOrigin::load);
        paramMapVersionFound = true;
    }

    const auto loaded = getParamCode (id), own = getParamMapVersion();

    if (loaded != own)
        logMapVersions (loaded, own);

    if (loaded < own)
    {
        for (int version = loaded; version < own; ++version)
            convertParamMap (version);

        setParamUndoable (id, thousandths::fromCode (own), true, ParamOrigin::load);
    }
    else if (loaded > own && ! newerVersionWarned.exchange (true))
    {
        showBox ("WARNING",
                 "This session was saved with a newer version of " + juce::String (getProductNames().display) +
                     " than the one you have installed. You may lose session data if saving out with this plugin. "
                     "Please update to the latest version.",
                 nullptr);
    }
}

void OxJuceProcessorBase::showBox (const juce::String& title, const juce::String& text,
                                   std::function<void (bool ok)> answered)
{
    // A host may load a state on any thread and wait for it on the message thread, so that nothing waits here.
    juce::MessageManager::callAsync (
        [=]
        {
            if (juce::Desktop::getInstance().getDisplays().displays.isEmpty())
                return;

            const platform::ScopedWindowErrorGuard guard;

            if (answered == nullptr)
                juce::AlertWindow::showMessageBoxAsync (juce::AlertWindow::NoIcon, title, text);
            else
                juce::AlertWindow::showOkCancelBox (
                    juce::AlertWindow::NoIcon, title, text, {}, {}, nullptr,
                    juce::ModalCallbackFunction::create ([answered] (int button) { answered (button == 1); }));
        });
}
