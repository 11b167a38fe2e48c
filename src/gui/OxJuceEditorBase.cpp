// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxJuceEditorBase.h"

namespace
{

constexpr int kGuiInterval = 30;   // milliseconds

}   // namespace

using LockMode = OxScopedReadWriteLock::Mode;

OxJuceEditorBase::OxJuceEditorBase (OxJuceProcessorBase& owner) : AudioProcessorEditor (owner), processorBase (owner)
{
    surface.setName ("Base OpenGL Component");
    addAndMakeVisible (surface);
    surface.setOglComponent (this);
}

OxJuceEditorBase::~OxJuceEditorBase()
{
    const OxScopedReadWriteLock lock (surface.renderLock, LockMode::write, true, __func__);
}

void OxJuceEditorBase::stopRendering()
{
    surface.stopRenderThread();
    stopTimer();
    const OxScopedReadWriteLock lock (editorLock, LockMode::write, true, __func__);
}

void OxJuceEditorBase::startGuiTimer()
{
    startTimer (kGuiInterval);
}

void OxJuceEditorBase::timerCallback()
{
    const OxScopedReadWriteLock lock (editorLock, LockMode::write, false, __func__);

    if (! lock.isGained())
        return;

    if (processorBase.guiUpdatePending)
    {
        processorBase.guiUpdatePending = false;
        updateGui();
    }

    onTimerTick();
}

void OxJuceEditorBase::updateGui()
{
    const OxScopedReadWriteLock lock (surface.renderLock, LockMode::read, false, __func__);

    if (! lock.isGained())
        return;

    const OxJuceProfilerItem::Scope profile (getProfilerItem (profilesUpdateGui));
    updateProductGui();
    processorBase.clearChangedFlags();
    processorBase.checkParamMapVersionCompatibility();
}

void OxJuceEditorBase::paint (juce::Graphics& graphics)
{
    graphics.fillAll (juce::Colours::grey);
}

void OxJuceEditorBase::resized()
{
    surface.setBounds (getBounds());
    surface.setViewportDirty();
}
