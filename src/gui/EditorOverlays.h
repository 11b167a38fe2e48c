// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxOglComponentUser.h"

#include <vector>

/** What lies above all controls for those who look after the program: the profiler's lines, and three developers' views that
    a debugger or a test switches on for the whole process. They are collected on the message thread, a tick at a time, and
    drawn on the render thread. */
class EditorOverlays : public OxOglComponentUser
{
public:
    static Relaxed<bool> showsUnderMouse;    // the components under the mouse
    static Relaxed<bool> showsTree;          // the grids of the editor
    static Relaxed<bool> showsHostFigures;   // sample rate, channels, block, latency, position

    /** Looks at the editor and its processor anew, if anything of this is shown [message thread]. */
    void collect (OxJuceEditorBase& owner);

    /** [render thread] */
    void draw();

private:
    enum class Kind
    {
        fill,
        outline,
        text
    };

    struct Item
    {
        Kind kind;
        juce::Rectangle<int> area;
        juce::Colour colour;
        juce::String text;
    };

    void addText (std::vector<Item>& list, const juce::String& text, juce::Point<int> at,
                  juce::Colour colour = juce::Colours::white) const;
    void addProfiler (std::vector<Item>& list, OxJuceEditorBase& owner) const;
    void addUnderMouse (std::vector<Item>& list, OxJuceEditorBase& owner) const;
    void addTree (std::vector<Item>& list, OxJuceEditorBase& owner) const;
    void addHostFigures (std::vector<Item>& list, OxJuceEditorBase& owner) const;

    std::vector<Item> items;   // replaced while no frame is drawn
};
