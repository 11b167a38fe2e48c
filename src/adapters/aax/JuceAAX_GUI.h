// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/aax/ContentWrapperComponent.h"
#include "adapters/aax/sdk/AAX_CEffectGUI.h"
#include "gui/EditorMouseListener.h"

namespace AAXClasses
{

/** The view of an instance: shows the processor's editor in the host's window, and lets the host have the mouse over
    parameters first. */
class JuceAAX_GUI : public AAX_CEffectGUI, public EditorMouseListener
{
public:
    static AAX_IEffectGUI* create() { return new JuceAAX_GUI; }
    ~JuceAAX_GUI() override { DeleteViewContainer(); }

    // AAX_IEffectGUI
    AAX_Result GetViewSize (AAX_Point* size) const override;

    // EditorMouseListener
    bool hostMouseDown (const juce::MouseEvent& event, int paramId) override
    {
        return askHost (&AAX_IViewContainer::HandleParameterMouseDown, event, paramId);
    }

    bool hostMouseDrag (const juce::MouseEvent& event, int paramId) override
    {
        return askHost (&AAX_IViewContainer::HandleParameterMouseDrag, event, paramId);
    }

    bool hostMouseUp (const juce::MouseEvent& event, int paramId) override
    {
        return askHost (&AAX_IViewContainer::HandleParameterMouseUp, event, paramId);
    }

private:
    using Handler = AAX_Result (AAX_IViewContainer::*) (AAX_CParamID, std::uint32_t);

    JuceAAX_GUI() = default;
    bool askHost (Handler handler, const juce::MouseEvent& event, int paramId);

    // AAX_CEffectGUI
    void CreateViewContents() override;
    AAX_Result CreateViewContainer() override;
    void DeleteViewContainer() override;

    MessageThread::User toolkit;   // goes last
    std::unique_ptr<ContentWrapperComponent> wrapper;
};

}   // namespace AAXClasses
