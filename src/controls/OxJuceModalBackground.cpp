// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceModalBackground.h"

#include "gui/OxJuceEditorBase.h"

namespace
{

constexpr int kPanelWidth = 420, kMaxPanelHeight = 550;   // pixels

}   // namespace

OxJuceModalBackground::OxJuceModalBackground()
{
    backgroundButton.setStateFill (juce::Colour (0x80000000), OxJuceButton::kAllStates);
    panelButton.setStateFill (juce::Colour (0xf0404040), OxJuceButton::kAllStates);
}

void OxJuceModalBackground::setEditor (const OxJuceEditorBase* editor)
{
    if (editor == nullptr)
        return;

    const auto area = editor->getBounds();
    const auto panelX = area.getX() + area.getWidth() / 2 - kPanelWidth / 2;
    const auto isTall = area.getHeight() > kMaxPanelHeight;
    const auto panelY = isTall ? (area.getHeight() - kMaxPanelHeight) / 2 : area.getY();
    backgroundButton.setBounds (area);
    panelButton.setBounds (panelX, panelY, kPanelWidth, std::min (area.getHeight(), kMaxPanelHeight));
}
