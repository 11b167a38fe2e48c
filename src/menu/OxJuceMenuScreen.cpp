// SPDX-License-Identifier: GPL-3.0-or-later
#include "menu/OxJuceMenuScreen.h"

#include "framework/ProductNames.h"
#include "gui/OxJuceEditorBase.h"

namespace
{

constexpr int kTitleIndent = 5, kTitleHeight = 48;   // pixels
constexpr int kBelowTitle = 51, kBelowWideTitle = 64, kWideTitleY = 27, kBelowHeader = 10;

}   // namespace

void OxJuceMenuScreen::show (OxJuceMenu& menu)
{
    OxJuceMenu::columnWidth = OxJuceMenu::kDefaultColumnWidth;
    auto& owner = menu.getEditor();
    auto* const font = owner.surface.getFont (18);
    const auto text = juce::String (getProductNames().maker) + " " + getProductNames().display;
    const auto width = font->measure (text), height = font->getHeight();
    const auto indented = width + kTitleIndent;
    const auto top = menu.cursorY;

    auto& title = menu.addText (text, height);
    title.setFont (font);
    title.setTextColour (juce::Colours::white, OxJuceButton::kAllStates);

    if (indented < owner.getWidth())
    {
        title.setBounds (menu.getCentreX() - indented / 2 + kTitleIndent, top + (kTitleHeight - height) / 2, width,
                         height);
        menu.cursorY = top + kBelowTitle;
    }
    else
    {
        title.setBounds (menu.getCentreX() - width / 2, top + kWideTitleY, width, height);
        menu.cursorY = top + kBelowWideTitle;
    }

    menu.cursorY += kBelowHeader;
    build (menu);
}
