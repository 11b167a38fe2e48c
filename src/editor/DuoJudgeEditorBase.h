// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxJuceEditorBase.h"
#include "gui/OxJuceOglGridComponent.h"
#include "metering/OxJuceMultiGradient.h"

/** The ground of the product's window: its shaded background and the grids in which everything stands.

    The main grid's fixed tracks add up to the window; the other grids stand in its cells, as the view wants it. */
class DuoJudgeEditorBase : public OxJuceEditorBase
{
public:
    explicit DuoJudgeEditorBase (OxJuceProcessorBase& owner) : OxJuceEditorBase (owner) {}

    // juce::Component
    void resized() override;

protected:
    static constexpr int kWidth = 535, kHeight = 267;   // pixels

    /** Gives every grid its tracks and the main grid its background, and starts their layout. */
    void buildGrids();

    OxJuceMultiGradient background { "Shaded Background" };
    OxJuceOglGridComponent mainGrid { "Main Grid" };
    OxJuceOglGridComponent levelMeterGrid { "Level Meter Grid" };
    OxJuceOglGridComponent chooseButtonGrid { "ChooseButton Grid" };
    OxJuceOglGridComponent statisticsGrid { "Statistics Grid" };
    OxJuceOglGridComponent gainControlGrid { "Gain Control Grid" };
};
