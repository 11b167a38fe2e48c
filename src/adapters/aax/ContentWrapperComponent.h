// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/ContentWrapper.h"

namespace AAXClasses
{

class JuceAAX_GUI;

/** The content of the host's window [message thread]. */
class ContentWrapperComponent : public ContentWrapper
{
public:
    /** @param ownView hears of the mouse over the editor's parameters */
    ContentWrapperComponent (JuceAAX_GUI& ownView, juce::AudioProcessorEditor& ownEditor);

private:
    void requestSize (int width, int height) override;

    JuceAAX_GUI& view;
};

}   // namespace AAXClasses
