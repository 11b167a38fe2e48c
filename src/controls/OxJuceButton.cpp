// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceButton.h"

#include "controls/MultipliedImage.h"
#include "gui/OxOglComponent.h"

namespace
{

const juce::Colour kFillOff { 0xff323232 }, kFillOn { 0xff505050 };

}   // namespace

OxJuceButton::OxJuceButton (const juce::String& nameOfControl) :
    OxJuceControlWithHelpers (nameOfControl), fillColours { kFillOff, kFillOn, juce::Colour(), juce::Colour() },
    tintColours { juce::Colours::white, juce::Colours::white, juce::Colour(), juce::Colour() }, textColours {
        juce::Colours::white, juce::Colours::white, juce::Colour(), juce::Colour()
    }
{
}

// Looks ---------------------------------------------------------------------------------------------------------------

void OxJuceButton::setStateFill (juce::Colour colour, int state)
{
    solid = true;
    forEachState (state, [&] (std::size_t index) { fillColours[index] = colour; });
    refresh();
}

void OxJuceButton::setTintColour (juce::Colour colour, int state)
{
    tinted = true;
    forEachState (state, [&] (std::size_t index) { tintColours[index] = colour; });
    refresh();
}

void OxJuceButton::setTextColour (juce::Colour colour, int state)
{
    forEachState (state, [&] (std::size_t index) { textColours[index] = colour; });
    refresh();
}

void OxJuceButton::setLabel (const juce::String& text, int state)
{
    replaceLabel (text, state, getImage (0).isNull());
}

void OxJuceButton::setSolidLabel (const juce::String& text, int state)
{
    replaceLabel (text, state, true);
    setPaintingIsUnclipped (true);
}

void OxJuceButton::replaceLabel (const juce::String& text, int state, bool isSolid)
{
    auto differs = solid != isSolid;
    forEachState (state, [&] (std::size_t index) { differs |= labels[index] != text; });

    if (! differs)
        return;

    {
        const ScopedChange change (*this);
        solid = isSolid;
        forEachState (state, [&] (std::size_t index) { labels[index] = text; });
    }

    refresh();
}

void OxJuceButton::valueChanged (float)
{
    refresh();
}

void OxJuceButton::lockChanged()
{
    refresh();
}

void OxJuceButton::refresh()
{
    selectImage (getState());
    selectHelperImages (getState());
}

// Clicks --------------------------------------------------------------------------------------------------------------

void OxJuceButton::mouseDown (const juce::MouseEvent& event)
{
    if (hostMouseDown (event) || ! takesMouse())
        return;

    const juce::WeakReference<juce::Component> self (this);
    beginChange();

    if (self != nullptr && isChanging())   // unless a listener has ended the gesture already
        setValue (getState() == 0 ? 1.0f : 0.0f, true);
}

void OxJuceButton::mouseUp (const juce::MouseEvent& event)
{
    hostMouseUp (event);
    abortChange();
}

void OxJuceButton::endChange()
{
    const juce::WeakReference<juce::Component> self (this);
    const auto wasChanging = isChanging();

    if (momentary)
        setValue (0.0f, true);

    if (self == nullptr || isLocked() || (wasChanging && ! isChanging()))
        return;   // a listener that locks the button has ended the gesture

    OxJuceControlWithHelpers::endChange();
}

// Drawing -------------------------------------------------------------------------------------------------------------

void OxJuceButton::draw (int)
{
    auto* const target = surface.get();

    if (target == nullptr || getDrawnLocalBounds().isEmpty())
        return;

    const auto state = getState();
    const auto index = static_cast<std::size_t> (state);
    const auto hasPicture = texture.getImage().isValid();

    if (solid)
    {
        drawFill (state);
    }
    else if (hasPicture)
    {
        if (needsReload)
        {
            needsReload = false;
            texture.markForReload();
        }

        texture.bind (target);
        const auto colour = tinted ? tintColours[index].get() : juce::Colours::white;
        target->glState.pending.colour = colour.withAlpha (getOpacity());
        drawPicture();
    }

    if (hasPicture && ! isLocked())
    {
        texture.bind (target);
        drawHelper (state == 0);
    }

    drawBackground();
    OxJuceOglFontUser::setTextColour (textColours[index].get().withAlpha (getOpacity()));
    drawLabel (labels[index], nullptr);
}

void OxJuceButton::drawFill (int state)
{
    auto& cache = surface.get()->glState;
    const GlStateCache::ScopedPending kept (cache);
    const auto colour = fillColours[static_cast<std::size_t> (state)].get().withMultipliedAlpha (getOpacity());
    cache.pending.colour = colour;
    cache.pending.blending = ! colour.isOpaque();
    drawFilledRect (getDrawnLocalBounds());
}

void OxJuceButton::drawPicture()
{
    if (texture.hasTexture())
        texture.drawQuad (getDrawnLocalBounds().toFloat());
}

// The twin ------------------------------------------------------------------------------------------------------------

void OxJuceButton::paint (juce::Graphics& graphics)
{
    const auto index = static_cast<std::size_t> (getState());
    graphics.setImageResamplingQuality (juce::Graphics::lowResamplingQuality);

    if (solid)
    {
        graphics.setColour (fillColours[index].get().withMultipliedAlpha (getOpacity()));
        graphics.fillRect (getLocalBounds());
    }
    else if (texture.getImage().isValid())
    {
        graphics.setOpacity (getOpacity());
        paintPicture (graphics, tinted);
    }

    if (! isLocked())
        paintHelper (index == 0, graphics);

    if (showsBackground)
    {
        graphics.setColour (backgroundColour.get().withAlpha (getOpacity()));
        graphics.fillRect (getLocalBounds());
    }

    const auto ink = textColours[index].get().withAlpha (getOpacity());
    paintLabel (graphics, labels[index], &ink);
}

void OxJuceButton::paintPicture (juce::Graphics& graphics, bool isTinted)
{
    const auto colour = isTinted ? getTintColour (getState()).withAlpha (1.0f) : juce::Colours::white;
    graphics.drawImage (getColouredImage (colour), getLocalBounds().toFloat());
}

juce::Image OxJuceButton::getColouredImage (juce::Colour colour) const
{
    return multiplied (texture.getImage(), colour);
}
