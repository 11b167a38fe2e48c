// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceControlWithHelpers.h"

#include "gui/OxJuceEditorBase.h"

using namespace juce::gl;

namespace
{

constexpr int kInsetSide = 10, kInsetTop = 2;   // pixels
constexpr float kDisabledLabelAlpha = 0.5f;

bool isImageIndex (int index)
{
    return index >= 0 && index < OxJuceControlWithHelpers::kNumImages;
}

juce::Rectangle<int> withoutNegativeSize (juce::Rectangle<int> area)
{
    return area.withSize (std::max (0, area.getWidth()), std::max (0, area.getHeight()));
}

}   // namespace

OxJuceControlWithHelpers::OxJuceControlWithHelpers (const juce::String& nameOfControl) :
    OxJuceControl (nameOfControl), texture (nameOfControl)
{
}

// Images --------------------------------------------------------------------------------------------------------------

void OxJuceControlWithHelpers::setImage (const juce::Image& image, int index)
{
    if (! isImageIndex (index))
        return;

    images[static_cast<std::size_t> (index)] = image;
    refresh();
}

void OxJuceControlWithHelpers::selectImage (int index)
{
    if (! isImageIndex (index))
        return;

    const auto& wanted = getImage (index);
    const auto& shown = wanted.isValid() ? wanted : getImage (0);

    if (shown.isValid())
        texture.setImage (shown);
}

void OxJuceControlWithHelpers::selectHelperImages (int index)
{
    if (! isImageIndex (index))
        return;

    if (getImage (index).isNull())
        return selectImage (0);

    helperTextureOff.setImage (getImage (2));
    helperTextureOn.setImage (getImage (3));
}

// The overlay ---------------------------------------------------------------------------------------------------------

void OxJuceControlWithHelpers::mouseEnter (const juce::MouseEvent& event)
{
    OxJuceControl::mouseEnter (event);

    if (! hoverFadeDisabled && takesMouse())
        fadeTarget = true;
}

void OxJuceControlWithHelpers::mouseExit (const juce::MouseEvent&)
{
    fadeTarget = false;
}

void OxJuceControlWithHelpers::startOneShotFade (float inStep, float outStep)
{
    const ScopedChange change (*this);

    if (! oneShotFade)
    {
        defaultFadeInStep = fadeInStep;
        defaultFadeOutStep = fadeOutStep;
    }

    fadeInStep = inStep;
    fadeOutStep = outStep;
    fadeLevel = 0.0f;
    oneShotFade = true;
    fadeTarget = true;
}

void OxJuceControlWithHelpers::stepFade()
{
    if (fadeTarget)
    {
        fadeLevel = std::min (1.0f, fadeLevel + fadeInStep);

        if (oneShotFade && fadeLevel >= 1.0f)
        {
            fadeTarget = false;
            fadeInStep = defaultFadeInStep;
        }

        return;
    }

    fadeLevel = std::max (0.0f, fadeLevel - fadeOutStep);

    if (oneShotFade && fadeLevel <= 0.0f)
    {
        oneShotFade = false;
        fadeOutStep = defaultFadeOutStep;
    }
}

void OxJuceControlWithHelpers::drawHelper (bool first)
{
    stepFade();
    auto& overlay = first ? helperTextureOff : helperTextureOn;
    auto* const target = surface.get();

    if (target == nullptr || fadeLevel <= 0.0f || overlay.getImage().isNull())
        return;

    overlay.bind (target);
    target->glState.pending.colour = juce::Colours::white.withAlpha (fadeLevel.get());

    if (overlay.hasTexture())
        overlay.drawQuad (helperBounds.toFloat());
}

void OxJuceControlWithHelpers::drawBackground()
{
    auto* const target = surface.get();
    const auto area = getDrawnLocalBounds();

    if (target == nullptr || ! showsBackground || area.isEmpty())
        return;

    target->glState.pending.texturing = false;
    target->glState.pending.colour = backgroundColour.get().withAlpha (getOpacity());
    drawFilledRect (area);
}

// The label -----------------------------------------------------------------------------------------------------------

juce::Rectangle<int> OxJuceControlWithHelpers::getLabelBounds (juce::Rectangle<int> local) const
{
    auto area = withoutNegativeSize (local);

    if (insetLabel)
        area = withoutNegativeSize (area.withTrimmedTop (kInsetTop).reduced (kInsetSide, 0));

    return area + labelOffset;
}

juce::Colour OxJuceControlWithHelpers::getLabelColour (const juce::Colour* colour) const
{
    const auto wanted = colour != nullptr ? *colour : getTextColour();
    return isDrawnEnabled() ? wanted : wanted.withMultipliedAlpha (kDisabledLabelAlpha);
}

void OxJuceControlWithHelpers::drawLabel (const juce::String& text, const juce::Colour* colour)
{
    drawText (getLabelBounds (getDrawnLocalBounds()), text, getLabelColour (colour));
}

void OxJuceControlWithHelpers::paintLabel (juce::Graphics& graphics, const juce::String& text,
                                           const juce::Colour* colour)
{
    constexpr int spillX = 70, spillY = 40;   // pixels that a text may take beyond its box
    const auto* const sheet = getFont();
    graphics.setColour (getLabelColour (colour));
    graphics.setFont (static_cast<float> (sheet != nullptr ? sheet->getHeight() : 0) + 0.5f);
    const auto box = getLabelBounds (getLocalBounds());

    if (getJustification() == TextJustification::left)
        graphics.drawText (text, box, juce::Justification::left, false);
    else
        graphics.drawText (text, box.expanded (spillX, spillY), juce::Justification::centred, false);
}
