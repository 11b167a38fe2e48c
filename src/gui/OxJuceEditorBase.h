// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/OxJuceProcessorBase.h"
#include "gui/OxOglComponent.h"

/** The framework's editor: owns the surface, runs the timer of the GUI, and moves what the processor holds to the screen.

    Everything runs on the message thread but what says [render thread]. The timer is started by the first frame, not by the
    constructor. The most derived class holds `editorLock` for writing through its whole constructor, and its destructor
    begins with `stopRendering`. */
class OxJuceEditorBase : public juce::AudioProcessorEditor, public juce::Timer, public OxJuceChannelUser
{
public:
    /** The places of the editor's own loops in the processor's list of profiler items. */
    enum ProfilerIndex : std::size_t
    {
        profilesRender = 2,
        profilesUpdateGui = 3
    };

    explicit OxJuceEditorBase (OxJuceProcessorBase& owner);
    ~OxJuceEditorBase() override;

    OxJuceProcessorBase& getOwner() const noexcept { return processorBase; }
    OxJuceProfilerItem& getProfilerItem (ProfilerIndex index) const { return processorBase.profilerItems[index]; }

    /** Starts the timer, at 30 ms [render thread]. */
    virtual void startGuiTimer();

    /** Called before anything of a frame is drawn, and after all of it [render thread]. */
    virtual void onPreRender() {}
    virtual void drawOverlays() {}

    /** Brings the screen up to date with the processor; skipped while the surface is being torn down. */
    virtual void updateGui();

    /** The product's share of each update, and of each tick of the timer. */
    virtual void updateProductGui() {}
    virtual void onTimerTick() {}

    // juce::Component, juce::Timer
    void paint (juce::Graphics& graphics) override;
    void resized() override;
    void timerCallback() override;

    OxReadWriteLock editorLock;   // written by constructor, destructor and each tick
    OxOglComponent surface;

protected:
    /** Ends all drawing and all ticks; the first thing that the most derived destructor does. */
    void stopRendering();

private:
    OxJuceProcessorBase& processorBase;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (OxJuceEditorBase)
};
