// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxJuceOglFontUser.h"

#include "gui/OxJuceEditorBase.h"

void OxJuceOglFontUser::setTextColour (juce::Colour colour)
{
    const juce::ScopedLock lock (fontLock);
    textColour = colour;
}

juce::Colour OxJuceOglFontUser::getTextColour() const
{
    const juce::ScopedLock lock (fontLock);
    return textColour;
}

void OxJuceOglFontUser::setFont (OxJuceOglFont* fontToUse)
{
    const juce::ScopedLock lock (fontLock);
    chosenFont = fontToUse;
}

OxJuceOglFont* OxJuceOglFontUser::getFont() const
{
    const juce::ScopedLock lock (fontLock);
    return resolveFont();
}

void OxJuceOglFontUser::setJustification (TextJustification newJustification)
{
    const juce::ScopedLock lock (fontLock);
    justification = newJustification;
}

TextJustification OxJuceOglFontUser::getJustification() const
{
    const juce::ScopedLock lock (fontLock);
    return justification;
}

void OxJuceOglFontUser::setWidthReference (const juce::String& sample)
{
    const juce::ScopedLock lock (fontLock);
    widthReference = sample;
}

void OxJuceOglFontUser::drawText (juce::Rectangle<int> box, const juce::String& text)
{
    const juce::ScopedLock lock (fontLock);
    drawLocked (box, text, textColour);
}

void OxJuceOglFontUser::drawText (juce::Rectangle<int> box, const juce::String& text, juce::Colour colour)
{
    const juce::ScopedLock lock (fontLock);
    drawLocked (box, text, colour);
}

OxJuceOglFont* OxJuceOglFontUser::resolveFont() const
{
    return chosenFont != nullptr || surface == nullptr ? chosenFont : surface.get()->getFont (14);
}

void OxJuceOglFontUser::drawLocked (juce::Rectangle<int> box, const juce::String& text, juce::Colour colour)
{
    auto* const inUse = resolveFont();

    if (inUse == nullptr || surface == nullptr)
        return;

    surface.get()->glState.pending.colour = colour;
    inUse->draw (box, text, justification, widthReference);
}
