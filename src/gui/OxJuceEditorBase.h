// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceButton.h"
#include "framework/OxJuceColourParamUser.h"
#include "framework/OxJuceProcessorBase.h"
#include "gui/EditorMouseListener.h"
#include "gui/EditorOverlays.h"
#include "gui/OxOglComponent.h"
#include "menu/OxJuceMenu.h"

/** The framework's editor: owns the surface, runs the timer of the GUI, and moves values both ways between the processor's
    parameters and the controls that stand for them.

    Everything runs on the message thread but what says [render thread]. The timer is started by the first frame, not by the
    constructor. The most derived class holds `editorLock` for writing through its whole constructor, and its destructor
    begins with `stopRendering`. */
class OxJuceEditorBase : public juce::AudioProcessorEditor,
                         public OxJuceControl::Listener,
                         public juce::Timer,
                         public OxJuceColourParamUser,
                         public OxJuceChannelUser
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

    // Controls --------------------------------------------------------------------------------------------------------

    /** Shows a control above all others, and binds it to this editor's surface. */
    void addControl (OxOglChildComponent& control);

    /** Keeps a control that has a parameter up to date, and forgets one that no longer has; controls call this. */
    void bindControl (OxJuceControl& control);

    /** Shows name and value of a parameter, where the product wants that for it. */
    void showTextOfParameter (int paramId);

    /** The text of a parameter that has changed, or over whose control the pointer is. */
    virtual void showParameterText (const juce::String&) {}

    /** Covers the editor with a screen that takes every click, or takes it away. */
    virtual void showDisableScreen (bool show);

    // What the host's format asks about mouse events on parameters: the last listener added is asked first. ------------

    void addHostMouseListener (EditorMouseListener& listener);
    void removeHostMouseListener (EditorMouseListener& listener);

    bool hostMouseDown (const juce::MouseEvent& event, int paramId);
    bool hostMouseDrag (const juce::MouseEvent& event, int paramId);
    bool hostMouseUp (const juce::MouseEvent& event, int paramId);

    // Frames [render thread] ------------------------------------------------------------------------------------------

    /** Starts the timer, at 30 ms. */
    virtual void startGuiTimer();

    /** Called before anything of a frame is drawn. */
    virtual void onPreRender() {}

    /** Draws what lies above all controls: the profiler's lines, the developers' views, then the product's own. */
    virtual void drawOverlays();
    virtual void drawProductOverlay() {}

    // Updates ---------------------------------------------------------------------------------------------------------

    /** Shows what the processor has come to since the last time; does nothing once the teardown has begun. */
    virtual void updateGui();
    virtual void syncControlsFromParameters();

    /** Opens or closes the menu when its parameter has changed. */
    virtual void updateMenuFromParameter();

    /** The product's share of each update, and of each tick of the timer. */
    virtual void updateProductGui() {}
    virtual void onTimerTick() {}

    // What the product adds to the menu ------------------------------------------------------------------------------

    /** @returns whether `addOptionRows` adds rows of its own to the options. */
    virtual bool hasOptionRows() const { return false; }
    virtual void addOptionRows (OxJuceMenu&) {}

    /** Further names for the credits, and lines below them, of which `addCreditLinesFirst` adds the upper ones. */
    virtual juce::StringArray getExtraCreditNames() { return {}; }
    virtual void addCreditLines (OxJuceMenu&) {}
    virtual void addCreditLinesFirst (OxJuceMenu&) {}

    // juce::Component, juce::Timer
    void paint (juce::Graphics& graphics) override;
    void resized() override;
    void timerCallback() override;

    // OxJuceControl::Listener
    void controlValueChanged (OxJuceControl& control) override;
    void controlGestureBegin (OxJuceControl& control) override;
    void controlGestureEnd (OxJuceControl& control) override;

    OxReadWriteLock editorLock;   // written by constructor, destructor and each tick
    OxOglComponent surface;
    OxJuceButton m_btnScreenDisablePlugin {
        "m_btnScreenDisablePlugin"
    };   // covers all else while the product is disabled
    OxJuceMenu menu { *this };

protected:
    /** Ends all drawing, all ticks and what a user is in the middle of; the first thing that the most derived destructor
        does. */
    void stopRendering();

private:
    template <typename Question>
    bool askMouseListeners (Question&& takes);

    OxJuceProcessorBase& processorBase;
    EditorOverlays overlays;
    juce::Array<OxJuceControl*> boundControls;                                 // those with a parameter, each once
    juce::Array<EditorMouseListener*, juce::CriticalSection> mouseListeners;   // not owned

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (OxJuceEditorBase)
};
