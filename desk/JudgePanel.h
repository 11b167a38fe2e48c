// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Judge.h"

#include <array>

#include <juce_gui_basics/juce_gui_basics.h>

namespace desk
{

/** The buttons of a comparison in its three views, the gain of B, and a line that says what is going on. */
class JudgePanel : public juce::Component, private juce::Timer
{
public:
    explicit JudgePanel (ComparisonGraph& comparison);

    /** Does what a key stands for, if the view offers it. @returns whether the key stands for anything */
    bool actOnKey (const juce::KeyPress& key);

    static int getPreferredHeight();

    void paint (juce::Graphics& g) override;
    void resized() override;

private:
    enum Place
    {
        first,
        second,
        centre,
        lowerFirst,
        lowerSecond,
        numPlaces
    };

    struct Face
    {
        std::optional<Action::Kind> kind;   // none hides the button
        const char* text = "";
    };

    using Faces = std::array<Face, numPlaces>;
    static const Faces& getFaces (View view);

    void perform (Action::Kind kind);
    void refresh();
    juce::String describeState() const;
    void timerCallback() override { refresh(); }

    const ComparisonGraph& graph;
    Judge judge;
    std::array<juce::TextButton, numPlaces> buttons;
    juce::Label status, gainName, gainValue, result, counts;
    juce::Slider gain { juce::Slider::LinearHorizontal, juce::Slider::NoTextBox };
};

}   // namespace desk
