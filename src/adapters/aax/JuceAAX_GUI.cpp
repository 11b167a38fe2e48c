// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/aax/JuceAAX_GUI.h"

#include "adapters/aax/JuceAAX_Processor.h"

namespace AAXClasses
{
namespace
{

std::uint32_t toModifiers (const juce::ModifierKeys& keys)
{
    return (keys.isShiftDown() ? AAX_eModifiers_Shift : 0u) |
           (keys.isCtrlDown() ? AAX_eModifiers_Control | AAX_eModifiers_Command : 0u) |
           (keys.isAltDown() ? AAX_eModifiers_Option : 0u) |
           (keys.isRightButtonDown() ? AAX_eModifiers_SecondaryButton : 0u);
}

}   // namespace

void JuceAAX_GUI::CreateViewContents()
{
    auto* const effect = dynamic_cast<JuceAAX_Processor*> (GetEffectParameters());

    if (wrapper != nullptr || effect == nullptr)
        return;

    const MessageThread::Lock lock;

    if (auto* const editor = ContentWrapper::makeEditor (effect->judge()))
        wrapper = std::make_unique<ContentWrapperComponent> (*this, *editor);
}

AAX_Result JuceAAX_GUI::CreateViewContainer()
{
    const auto result = AAX_CEffectGUI::CreateViewContainer();

    if (result != AAX_SUCCESS || wrapper == nullptr)
        return AAX_ERROR_NULL_OBJECT;

    auto* const parent = GetViewContainer()->GetPtr();

    if (parent == nullptr || GetViewContainer()->GetType() != AAX_eViewContainer_Type_Window)
        return result;

    const MessageThread::Lock lock;

    if (! wrapper->connect())
        return AAX_ERROR_NULL_OBJECT;

    wrapper->embed (parent);
    return result;
}

void JuceAAX_GUI::DeleteViewContainer()
{
    const MessageThread::Lock lock;
    wrapper.reset();
}

AAX_Result JuceAAX_GUI::GetViewSize (AAX_Point* size) const
{
    if (wrapper == nullptr || size == nullptr)
        return AAX_ERROR_NULL_OBJECT;

    *size = { static_cast<float> (wrapper->getWidth()), static_cast<float> (wrapper->getHeight()) };
    return AAX_SUCCESS;
}

bool JuceAAX_GUI::askHost (Handler handler, const juce::MouseEvent& event, int paramId)
{
    const auto modifiers = toModifiers (event.mods);

    // With this key alone the control resets itself.
    if (modifiers == AAX_eModifiers_Option || GetViewContainer() == nullptr)
        return false;

    return (GetViewContainer()->*handler) (std::to_string (paramId).c_str(), modifiers) == AAX_SUCCESS;
}

}   // namespace AAXClasses
