// SPDX-License-Identifier: GPL-3.0-or-later
// The parameter store: where records lie, and what a write of one entails.
#include "framework/OxJuceProcessorBase.h"

#include "framework/Settings.h"

namespace
{

/** The id behind a role, asked of the product once in the life of the process: roles are constants. */
template <int (OxJuceProcessorHooks::*accessor)() const>
int roleId (const OxJuceProcessorHooks& product)
{
    constexpr int unasked = -1;
    static Relaxed<int> cached = unasked;

    if (cached == unasked)
        cached = (product.*accessor)();

    return cached;
}

using Hooks = OxJuceProcessorHooks;

float clamp (float value) noexcept
{
    return value < 0.0f ? 0.0f : value > 1.0f ? 1.0f : value;   // not a number passes as it is
}

/** A command parameter acts on a press, which is exactly 1. */
bool isPress (float value)
{
    return value == 1.0f;
}

}   // namespace

OxJuceProcessorBase::Group OxJuceProcessorBase::getGroup (int id) const noexcept
{
    if (id >= 0 && id < numParams)
        return Group::normal;

    if (id >= kPersistentIdBase && id < kPersistentIdBase + numPersistentParams)
        return Group::persistent;

    if (id >= kTransientIdBase && id < kTransientIdBase + numTransientParams)
        return Group::transient;

    return Group::none;
}

int OxJuceProcessorBase::getCurrentProgramIndex() const noexcept
{
    const int index = currentProgram;
    return index < kMaxPrograms ? index : 0;
}

OxParamRecord& OxJuceProcessorBase::parameter (int id) noexcept
{
    const auto record = [] (OxParamSet& set, int index) -> OxParamRecord&
    { return set.params[static_cast<std::size_t> (index < kMaxParams ? index : 0)]; };

    switch (getGroup (id))
    {
        case Group::normal:
            return record (programs[static_cast<std::size_t> (getCurrentProgramIndex())], id);
        case Group::persistent:
            return record (persistentParams, id - kPersistentIdBase);
        case Group::transient:
            return record (transientParams, id - kTransientIdBase);
        default:
            return invalidParam;
    }
}

float OxJuceProcessorBase::getParameter (int index)
{
    return index >= 0 && index < getNumParameters() ? parameter (index).value.get() : 0.0f;
}

void OxJuceProcessorBase::addNormalParam (const char*, int id, float value)
{
    parameter (id).value = value;

    for (auto& program : programs)
        program.params[static_cast<std::size_t> (id)].defaultValue = value;
}

void OxJuceProcessorBase::addPersistentParam (const char* key, int id, float value)
{
    auto& record = parameter (id);
    record.defaultValue = value;
    record.value = readSettingFloat (key, value);
}

void OxJuceProcessorBase::addTransientParam (const char*, int id, float value)
{
    auto& record = parameter (id);
    record.value = record.defaultValue = value;
}

void OxJuceProcessorBase::setParameter (int index, float value)
{
    if (index < 0 || index >= getNumParameters())
        return;

    if (logParameterChanges)
        juce::Logger::writeToLog ("OxJuceProcessorBase::setParameter " + getParameterName (index) + " = " +
                                  juce::String (value, 2));

    setParamDirect (index, value, false, ParamOrigin::host);
}

void OxJuceProcessorBase::setParamDirect (int id, float value, bool notifyHost, ParamOrigin origin)
{
    const auto group = getGroup (id);
    auto& record = parameter (id);
    storeValue (record, id, clamp (value));

    if (group == Group::persistent && record.value != record.previousValue)
        writeSettingFloat (getParamKey (id), record.value);

    afterParamChange (id, origin);

    if (notifyHost && group == Group::normal && isParameterHostVisible (id))
        hostNotices.add (HostNotices::Kind::value, id);
}

void OxJuceProcessorBase::writeInSound (int id, float value, ParamOrigin origin) noexcept
{
    if (getGroup (id) != Group::normal)
        return;

    auto& record = parameter (id);
    storeValue (record, id, clamp (value));

    if (const float before = record.previousValue, after = record.value; before != after)
    {
        if (origin != ParamOrigin::host && isParamUndoable (id))
            soundChanges.add (id, before, after);

        if (isParameterHostVisible (id))
            soundChanges.setUntold (id);
    }

    parameterChanged (id, origin);
}

void OxJuceProcessorBase::storeValue (OxParamRecord& record, int id, float value) noexcept
{
    record.previousValue = record.value;
    record.value = value;

    if (value != record.previousValue)
    {
        record.changed = true;
        pendingParameterTextId = id;
        guiUpdatePending = true;
    }
}

void OxJuceProcessorBase::afterParamChange (int id, ParamOrigin origin)
{
    const auto& record = parameter (id);

    if (id == roleId<&Hooks::getRoutingParam> (*this) && record.editedByGui && origin == ParamOrigin::user)
        copyRoutingToDefault (record.value);

    if (id == roleId<&Hooks::getResetToPresetParam> (*this) && record.value != 0.0f && origin != ParamOrigin::undo)
        applyParamSet (resetParams, false, ParamOrigin::reset);

    parameterChanged (id, origin);
}

void OxJuceProcessorBase::copyRoutingToDefault (float value)
{
    const auto numChannels = getMaxNumChannels();

    if (numChannels <= 6)
        setParamDirect (roleId<&Hooks::getRoutingDefaultParam> (*this), value, false, ParamOrigin::consequence);
    else if (numChannels == 8)
        setParamDirect (roleId<&Hooks::getRoutingDefault71Param> (*this), value, false, ParamOrigin::consequence);
    else if (numChannels == 10)
        setParamDirect (roleId<&Hooks::getRoutingDefault712Param> (*this), value, false, ParamOrigin::consequence);
}

void OxJuceProcessorBase::setParamUndoable (int id, float value, bool notifyHost, ParamOrigin origin)
{
    beginGesture (id);

    if (id == roleId<&Hooks::getUndoParam> (*this) || id == roleId<&Hooks::getRedoParam> (*this))
        return isPress (value) ? replay (id == roleId<&Hooks::getUndoParam> (*this)) : void();

    if (id == roleId<&Hooks::getAbParam> (*this))
        return toggleAlternate (value);

    if (id == roleId<&Hooks::getAtoBParam> (*this))
        return isPress (value) ? copyToAlternate (value) : void();

    if (id == roleId<&Hooks::getPresetPrevParam> (*this) || id == roleId<&Hooks::getPresetNextParam> (*this))
        return isPress (value) ? stepPreset (id == roleId<&Hooks::getPresetNextParam> (*this)) : void();

    const float old = parameter (id).value;

    // What is not a number, as a damaged state may have left it, gives way to any number.
    if (! (value > old + undoThreshold || value < old - undoThreshold || std::isnan (old)))
        return;

    if (isParamUndoable (id))
        performUndoable (new OxJuceUndoableAction (this, id, old, value, notifyHost, origin));
    else
        setParamDirect (id, value, notifyHost, origin);
}

void OxJuceProcessorBase::captureParamSet (OxParamSet& set)
{
    for (int id = 0; id < numParams; ++id)
        set.params[static_cast<std::size_t> (id)].value = parameter (id).value;
}

void OxJuceProcessorBase::applyParamSet (const OxParamSet& set, bool keepExcluded, ParamOrigin origin)
{
    for (int id = 0; id < numParams; ++id)
    {
        if (id == roleId<&Hooks::getAbParam> (*this) || id == getNoParamId())
            continue;

        if (! keepExcluded || ! isParamExcludedFromPresets (id))
            setParamUndoable (id, set.params[static_cast<std::size_t> (id)].value, true, origin);
    }

    captureParamSet (resetParams);
}

void OxJuceProcessorBase::clearChangedFlags()
{
    const auto clear = [this] (int firstId, int count)
    {
        for (int id = firstId; id < firstId + count; ++id)
            parameter (id).changed = false;
    };
    clear (0, numParams);
    clear (kPersistentIdBase, numPersistentParams);
    clear (kTransientIdBase, numTransientParams);
}

void OxJuceProcessorBase::sendAutomatableParams()
{
    for (int id = 0; id < numParams; ++id)
        if (isParameterHostVisible (id))
            hostNotices.add (HostNotices::Kind::value, id);
}
