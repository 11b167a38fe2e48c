// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/aax/ContentWrapperComponent.h"

#include "adapters/aax/JuceAAX_GUI.h"
#include "gui/OxJuceEditorBase.h"

namespace AAXClasses
{

ContentWrapperComponent::ContentWrapperComponent (JuceAAX_GUI& ownView, juce::AudioProcessorEditor& ownEditor) :
    ContentWrapper (ownEditor), view (ownView)
{
    if (auto* const asker = dynamic_cast<OxJuceEditorBase*> (&ownEditor))
        asker->addHostMouseListener (view);
}

void ContentWrapperComponent::requestSize (int width, int height)
{
    setSize (width, height);   // the host may ask for it at once

    if (auto* const container = view.GetViewContainer())
        container->SetViewSize ({ static_cast<float> (width), static_cast<float> (height) });
}

}   // namespace AAXClasses
