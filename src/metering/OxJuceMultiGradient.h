// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxOglChildComponent.h"
#include "metering/OxJuceMultiGradientHelper.h"

/** Fills its bounds with a gradient, as far as there is a stop on either side: before the first and after the last it stays
    clear, and a single stop draws nothing. */
class OxJuceMultiGradient : public OxJuceMultiGradientHelper, public OxOglChildComponent
{
public:
    explicit OxJuceMultiGradient (const juce::String& nameOfComponent = {});

    // OxJuceMultiGradientHelper [message thread]
    void addStop (float position, juce::Colour colour) override;

    // OxOglChildComponent
    void draw (int elapsedMs) override;
    const char* getTypeName() const override { return "OxJuceMultiGradient"; }

    // juce::Component
    void paint (juce::Graphics& graphics) override;
};
