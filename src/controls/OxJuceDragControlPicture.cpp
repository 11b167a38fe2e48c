// SPDX-License-Identifier: GPL-3.0-or-later
// What a drag control shows, by OpenGL and by the toolkit's own painting.
#include "controls/MultipliedImage.h"
#include "controls/OxJuceDragControl.h"
#include "gui/Images.h"
#include "gui/OxJuceEditorBase.h"

// What is shown -------------------------------------------------------------------------------------------------------

void OxJuceDragControl::setFrames (int count, bool isContinuous)
{
    frameCount = count;
    continuous = isContinuous;
    refresh();
}

void OxJuceDragControl::setTextMode (bool shouldShowText)
{
    textMode = shouldShowText;
    updateShownText();
    repaint();
}

void OxJuceDragControl::setOglComponent (OxJuceEditorBase* newEditor)
{
    OxJuceControlWithHelpers::setOglComponent (newEditor);
    updateShownText();
}

void OxJuceDragControl::updateShownText()
{
    juce::String text;

    if (auto* const owner = editor.get(); owner != nullptr && textMode && getParameterId() != kNoParam)
        text = owner->getOwner().getParameterText (getParameterId());

    if (text == shownText)
        return;

    const ScopedChange change (*this);
    shownText.swapWith (text);
}

void OxJuceDragControl::refresh()
{
    looksHeld = isDraggingLook();
    selectImage (looksHeld ? 1 : 0);
}

int OxJuceDragControl::getFrame() const
{
    const auto frame = continuous ? static_cast<int> (static_cast<float> (frameCount) * getValue()) : getCode();
    return std::min (frame, frameCount - 1);
}

void OxJuceDragControl::selectImage (int index)
{
    if (index < 0 || index >= kNumImages)
        return;

    const auto& strip = getImage (index).isValid() ? getImage (index) : getImage (0);
    const auto frame = images::frameBounds (strip, getFrame(), frameCount);

    if (frame.isEmpty() || (strip == shownStrip && frame == shownFrame))
        return;

    shownStrip = strip;
    shownFrame = frame;
    texture.setImage (strip.getClippedImage (frame));
}

juce::Colour OxJuceDragControl::getPictureColour() const
{
    return (tinted ? tint.get() : juce::Colours::white).withAlpha (getOpacity());
}

juce::Colour OxJuceDragControl::getDimming() const
{
    return juce::Colours::black.withAlpha (1.0f - getOpacity());
}

// OpenGL --------------------------------------------------------------------------------------------------------------

void OxJuceDragControl::draw (int)
{
    if (surface == nullptr || getDrawnLocalBounds().isEmpty())
        return;

    textMode ? drawTextBox() : drawPicture();
    drawBackground();
}

void OxJuceDragControl::drawTextBox()
{
    auto& pending = surface.get()->glState.pending;
    pending.texturing = false;
    pending.colour = fillColour;
    drawFilledRect (getDrawnLocalBounds());
    drawLabel (shownText, nullptr);
    pending.texturing = false;
    pending.colour = getDimming();
    drawFilledRect (getDrawnLocalBounds());
}

void OxJuceDragControl::drawPicture()
{
    if (needsReload)
    {
        texture.markForReload();
        needsReload = false;
    }

    texture.bind (surface);
    surface.get()->glState.pending.colour = getPictureColour();

    if (texture.hasTexture())
        texture.drawQuad (getDrawnLocalBounds().toFloat());

    drawHelper (! looksHeld);
}

// The toolkit's own painting ------------------------------------------------------------------------------------------

void OxJuceDragControl::paint (juce::Graphics& graphics)
{
    if (textMode)
    {
        graphics.setColour (fillColour);
        graphics.fillRect (getLocalBounds());
        paintLabel (graphics, shownText, nullptr);
        graphics.setColour (getDimming());
        graphics.fillRect (getLocalBounds());
    }
    else
    {
        const auto colour = getPictureColour();
        graphics.setImageResamplingQuality (juce::Graphics::lowResamplingQuality);
        graphics.setOpacity (colour.getFloatAlpha());
        graphics.drawImage (multiplied (texture.getImage(), colour.withAlpha (1.0f)), getLocalBounds().toFloat());
        paintHelper (! looksHeld, graphics);
    }

    if (showsBackground)
    {
        graphics.setColour (backgroundColour.get().withAlpha (getOpacity()));
        graphics.fillRect (getLocalBounds());
    }
}
