// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceScalableButton.h"

#include "gui/Images.h"
#include "gui/OxOglComponent.h"

using namespace juce::gl;

namespace
{

constexpr std::size_t kNumPieces = 3;      // side by side, and one above the other
constexpr float kRowTolerance = 1.0e-3f;   // pixels: a corner's share of the height, times the height, is the corner

int toPixel (float row, int height)
{
    return static_cast<int> (row * static_cast<float> (height) + kRowTolerance);
}

/** Four cuts across a length, with the middle piece between two corners. */
std::array<int, kNumPieces + 1> cutsAcross (int length, int corner)
{
    return { 0, corner, length - corner, length };
}

}   // namespace

OxJuceScalableButton::OxJuceScalableButton (const juce::String& nameOfControl, const juce::String& resourceName,
                                            int cornerSize) :
    OxJuceButton (nameOfControl)
{
    if (cornerSize != 0)
        cornerWidth = cornerHeight = cornerSize;

    hoverFadeDisabled = true;
    setTintColour (juce::Colours::white, kAllStates);
    setStripImage (images::loadImageByName (resourceName), 0, 0);
}

void OxJuceScalableButton::setStripImage (const juce::Image& image, int cornerW, int cornerH)
{
    if (image.isNull())
        return;

    {
        const ScopedChange change (*this);
        cornerWidth = cornerW != 0 ? cornerW : cornerWidth;
        cornerHeight = cornerH != 0 ? cornerH : cornerHeight;
    }

    setImage (image, 0);

    for (int index = 1; index < kNumImages; ++index)
        setImage ({}, index);

    updateTextureEdges();
    forEachState (kAllStates, [this] (std::size_t state) { updateRows (state); });
}

void OxJuceScalableButton::setGradient (const std::vector<OxJuceMultiGradientHelper::Stop>& stops, int state)
{
    forEachState (state,
                  [&] (std::size_t index)
                  {
                      for (const auto& stop : stops)
                          gradients[index].addStop (stop.position, stop.colour);

                      updateRows (index);
                  });
    const ScopedChange change (*this);
    hasGradients = true;
}

void OxJuceScalableButton::resized()
{
    forEachState (kAllStates, [this] (std::size_t state) { updateRows (state); });
}

void OxJuceScalableButton::updateTextureEdges()
{
    const auto& picture = getImage (0);

    if (picture.isNull())
        return;

    const auto left = static_cast<float> (cornerWidth) / static_cast<float> (picture.getWidth());
    const auto top = static_cast<float> (cornerHeight) / static_cast<float> (picture.getHeight());
    const ScopedChange change (*this);
    textureLeft = left;
    textureRight = 1.0f - left;
    textureTop = top;
    textureBottom = 1.0f - top;
}

void OxJuceScalableButton::updateRows (std::size_t state)
{
    if (getWidth() < cornerWidth || getHeight() < cornerHeight)
        return;

    const auto corner = static_cast<float> (cornerHeight) / static_cast<float> (getHeight());
    std::vector<float> positions { 0.0f, corner, 1.0f - corner, 1.0f };

    for (const auto& stop : gradients[state].getStops())
        if (stop.position > corner && stop.position < 1.0f - corner)
            positions.push_back (stop.position);

    std::sort (positions.begin(), positions.end());
    const auto hasStops = ! gradients[state].getStops().empty();
    Rows rows;

    for (const auto position : positions)
        rows.push_back ({ position, hasStops ? gradients[state].colourAt (position) : juce::Colour() });

    const ScopedChange change (*this);
    std::swap (bandRows[state], rows);
}

OxJuceScalableButton::Band OxJuceScalableButton::getBand (const Rows& rows, std::size_t index, int height)
{
    const auto isLast = index + 2 == rows.size();
    const std::size_t firstCut = index == 0 ? 0 : isLast ? kNumPieces - 1 : 1;
    return { toPixel (rows[index].position, height), toPixel (rows[index + 1].position, height), firstCut };
}

// Drawing -------------------------------------------------------------------------------------------------------------

void OxJuceScalableButton::drawPicture()
{
    drawNineSlice (getState(), getOpacity());
}

void OxJuceScalableButton::drawHelper (bool)
{
    stepFade();

    if (getFadeLevel() > 0.0f)
        drawNineSlice (getState() + 2, getFadeLevel());
}

void OxJuceScalableButton::drawNineSlice (int state, float alpha)
{
    auto* const target = surface.get();

    if (target == nullptr)
        return;

    const auto area = getDrawnLocalBounds();
    const auto& rows = bandRows[static_cast<std::size_t> (state)];
    const auto x = cutsAcross (area.getWidth(), cornerWidth);
    const std::array u { 0.0f, textureLeft, textureRight, 1.0f }, v { 0.0f, textureTop, textureBottom, 1.0f };
    const auto tint = getTintColour (state);
    const auto colourOf = [&] (const Row& row)
    { return (hasGradients ? row.colour : tint).withMultipliedAlpha (alpha); };
    const auto corner = [&] (std::size_t xCut, std::size_t vCut, int y, juce::Colour colour)
    {
        glTexCoord2f (u[xCut], v[vCut]);
        target->addVertex ({ x[xCut], y }, colour);
    };
    target->applyGlState();
    glBegin (GL_QUADS);

    for (std::size_t index = 0; index + 1 < rows.size(); ++index)
    {
        const auto band = getBand (rows, index, area.getHeight());
        const auto upper = colourOf (rows[index]), lower = colourOf (rows[index + 1]);

        for (std::size_t piece = 0; piece < kNumPieces; ++piece)
        {
            corner (piece, band.firstCut, band.top, upper);
            corner (piece, band.firstCut + 1, band.bottom, lower);
            corner (piece + 1, band.firstCut + 1, band.bottom, lower);
            corner (piece + 1, band.firstCut, band.top, upper);
        }
    }

    glEnd();
}

void OxJuceScalableButton::drawLabel (const juce::String& text, const juce::Colour* colour)
{
    const auto* const sheet = getFont();
    const auto area = getDrawnLocalBounds();

    if (sheet == nullptr)
        return;

    const auto fits = sheet->measure (text) <= area.getWidth() && sheet->getHeight() <= area.getHeight();

    if (fits || drawsOversizeLabel)
        OxJuceButton::drawLabel (text, colour);
}

void OxJuceScalableButton::paintPicture (juce::Graphics& graphics, bool isTinted)
{
    const auto state = getState();
    const auto picture = getColouredImage (isTinted ? getTintColour (state) : juce::Colours::white);
    const auto& rows = bandRows[static_cast<std::size_t> (state)];
    const auto x = cutsAcross (getWidth(), cornerWidth), sourceX = cutsAcross (picture.getWidth(), cornerWidth),
               sourceY = cutsAcross (picture.getHeight(), cornerHeight);

    for (std::size_t index = 0; index + 1 < rows.size(); ++index)
    {
        const auto band = getBand (rows, index, getHeight());
        const auto sourceTop = sourceY[band.firstCut];

        for (std::size_t piece = 0; piece < kNumPieces; ++piece)
            graphics.drawImage (picture, x[piece], band.top, x[piece + 1] - x[piece], band.bottom - band.top,
                                sourceX[piece], sourceTop, sourceX[piece + 1] - sourceX[piece],
                                sourceY[band.firstCut + 1] - sourceTop);
    }
}
