// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxJuceEditorBase.h"

#include "gui/DriverCheck.h"

namespace
{

constexpr int kGuiInterval = 30;   // milliseconds

float inverseIf (bool inverted, float value)
{
    return inverted ? 1.0f - value : value;
}

}   // namespace

using LockMode = OxScopedReadWriteLock::Mode;

OxJuceEditorBase::OxJuceEditorBase (OxJuceProcessorBase& owner) : AudioProcessorEditor (owner), processorBase (owner)
{
    surface.setName ("Base OpenGL Component");
    addAndMakeVisible (surface);
    surface.setOglComponent (this);
    overlays.setOglComponent (this);
    addControl (m_btnScreenDisablePlugin);
    m_btnScreenDisablePlugin.setStateFill (juce::Colours::transparentBlack, OxJuceButton::kAllStates);
    m_btnScreenDisablePlugin.setVisible (false);
}

OxJuceEditorBase::~OxJuceEditorBase()
{
    menu.setOpen (false);   // its controls leave their parameters while there is a list of them
    const OxScopedReadWriteLock lock (surface.renderLock, LockMode::write, true, __func__);
}

void OxJuceEditorBase::stopRendering()
{
    surface.stopRenderThread();
    stopTimer();
    surface.setVisible (false);   // ends what a user is in the middle of
    const OxScopedReadWriteLock lock (editorLock, LockMode::write, true, __func__);
}

// Updates -------------------------------------------------------------------------------------------------------------

void OxJuceEditorBase::startGuiTimer()
{
    startTimer (kGuiInterval);
}

void OxJuceEditorBase::timerCallback()
{
    const OxScopedReadWriteLock lock (editorLock, LockMode::write, false, __func__);

    if (! lock.isGained())
        return;

    showDisableScreen (processorBase.pluginDisabled);

    if (processorBase.guiUpdatePending)
    {
        processorBase.guiUpdatePending = false;
        updateGui();
    }

    onTimerTick();
    overlays.collect (*this);
}

void OxJuceEditorBase::drawOverlays()
{
    driverCheck::runOnce();
    overlays.draw();
    drawProductOverlay();
}

void OxJuceEditorBase::updateGui()
{
    const OxScopedReadWriteLock lock (surface.renderLock, LockMode::read, false, __func__);

    if (! lock.isGained())
        return;

    const OxJuceProfilerItem::Scope profile (getProfilerItem (profilesUpdateGui));
    syncControlsFromParameters();
    updateMenuFromParameter();
    updateProductGui();
    processorBase.clearChangedFlags();

    const int changedId = processorBase.pendingParameterTextId;
    processorBase.pendingParameterTextId = kNoParam;
    showTextOfParameter (changedId);
    processorBase.checkParamMapVersionCompatibility();
}

void OxJuceEditorBase::syncControlsFromParameters()
{
    for (auto* const control : boundControls)
        if (const auto id = control->getParameterId(); id != kNoParam)
            control->setValue (inverseIf (control->inverted, processorBase.parameter (id).value), false);
}

void OxJuceEditorBase::updateMenuFromParameter()
{
    if (const auto& record = processorBase.parameter (processorBase.getMenuParam()); record.changed)
        menu.setOpen (record.value != 0.0f);
}

void OxJuceEditorBase::showTextOfParameter (int paramId)
{
    if (paramId == kNoParam || ! processorBase.isParamShownOnChange (paramId))
        return;

    auto text = processorBase.getParameterName (paramId);
    const auto isCommand = paramId == processorBase.getUndoParam() || paramId == processorBase.getRedoParam() ||
                           paramId == processorBase.getPresetNextParam() ||
                           paramId == processorBase.getPresetPrevParam();

    if (! isCommand)
        text << ": " << processorBase.getParameterText (paramId);

    showParameterText (text);
}

void OxJuceEditorBase::resized()
{
    surface.setBounds (getBounds());
    surface.setViewportDirty();

    if (menu.isOpen())
    {
        menu.setOpen (false);
        menu.setOpen (true);   // laid out for the new size
    }
}

void OxJuceEditorBase::paint (juce::Graphics& graphics)
{
    graphics.fillAll (juce::Colours::grey);
}

// Controls ------------------------------------------------------------------------------------------------------------

void OxJuceEditorBase::addControl (OxOglChildComponent& control)
{
    surface.removeChildComponent (&control);
    surface.addAndMakeVisible (control);
    control.setOglComponent (this);
}

void OxJuceEditorBase::bindControl (OxJuceControl& control)
{
    if (control.getParameterId() == kNoParam)
        boundControls.removeFirstMatchingValue (&control);
    else
        boundControls.addIfNotAlreadyThere (&control);
}

void OxJuceEditorBase::controlValueChanged (OxJuceControl& control)
{
    const auto id = control.getParameterId();

    if (id == kNoParam)
        return;

    auto& record = processorBase.parameter (id);

    if (const auto value = inverseIf (control.inverted, control.getValue()); value != record.value)
    {
        record.editedByGui = true;
        processorBase.setParamUndoable (id, value, true);

        if (! control.isChanging())   // a change outside a gesture leaves none open at the host
            controlGestureEnd (control);
    }

    if (id == processorBase.getProfilingParam())
    {
        processorBase.updateProfilerEnabled();
        processorBase.setParamUndoable (processorBase.getMenuParam(), 0.0f, true);
    }
}

void OxJuceEditorBase::controlGestureBegin (OxJuceControl& control)
{
    if (const auto id = control.getParameterId(); id != kNoParam)
    {
        processorBase.parameter (id).editedByGui = true;
        processorBase.beginGesture (id);
    }

    processorBase.beginNewTransaction (control.getName());
}

void OxJuceEditorBase::controlGestureEnd (OxJuceControl& control)
{
    if (const auto id = control.getParameterId(); id != kNoParam)
    {
        processorBase.parameter (id).editedByGui = false;
        processorBase.endGesture (id);
    }
}

void OxJuceEditorBase::showDisableScreen (bool show)
{
    m_btnScreenDisablePlugin.setBounds (getBounds());

    if (show && ! m_btnScreenDisablePlugin.isVisible())
        addControl (m_btnScreenDisablePlugin);   // above all that has been added since
    else
        m_btnScreenDisablePlugin.setVisible (show);
}

// The host's mouse ----------------------------------------------------------------------------------------------------

void OxJuceEditorBase::addHostMouseListener (EditorMouseListener& listener)
{
    mouseListeners.addIfNotAlreadyThere (&listener);
}

void OxJuceEditorBase::removeHostMouseListener (EditorMouseListener& listener)
{
    mouseListeners.removeFirstMatchingValue (&listener);
}

template <typename Question>
bool OxJuceEditorBase::askMouseListeners (Question&& takes)
{
    for (int index = mouseListeners.size(); --index >= 0;)
        if (takes (*mouseListeners.getUnchecked (index)))
            return true;

    return false;
}

bool OxJuceEditorBase::hostMouseDown (const juce::MouseEvent& event, int paramId)
{
    return askMouseListeners ([&] (EditorMouseListener& host) { return host.hostMouseDown (event, paramId); });
}

bool OxJuceEditorBase::hostMouseDrag (const juce::MouseEvent& event, int paramId)
{
    return askMouseListeners ([&] (EditorMouseListener& host) { return host.hostMouseDrag (event, paramId); });
}

bool OxJuceEditorBase::hostMouseUp (const juce::MouseEvent& event, int paramId)
{
    return askMouseListeners ([&] (EditorMouseListener& host) { return host.hostMouseUp (event, paramId); });
}
