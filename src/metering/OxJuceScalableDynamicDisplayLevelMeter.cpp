// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxJuceScalableDynamicDisplayLevelMeter.h"

#include "gui/OxOglComponent.h"

namespace
{

constexpr float kLeastForGaps = 2.0f;     // pixels of a segment with its gap
constexpr int kLabelFontSize = 10;        // of the surface's fonts
constexpr float kPaintedHeight = 11.0f;   // of the toolkit's font

int truncated (float number)
{
    return static_cast<int> (number);
}

}   // namespace

OxJuceScalableDynamicDisplayLevelMeter::OxJuceScalableDynamicDisplayLevelMeter (const juce::String& nameOfMeter) :
    OxJuceDynamicDisplayLevelMeter (nameOfMeter)
{
}

// Geometry ------------------------------------------------------------------------------------------------------------

void OxJuceScalableDynamicDisplayLevelMeter::resized()
{
    invalidateGeometry();
}

float OxJuceScalableDynamicDisplayLevelMeter::getBottomDb()
{
    updateGeometry();
    return bottomDb - partDb;
}

float OxJuceScalableDynamicDisplayLevelMeter::getFirstBorderDb()
{
    updateGeometry();
    return bottomDb;
}

void OxJuceScalableDynamicDisplayLevelMeter::updateGeometry()
{
    const auto length = getLength();

    // The toolkit tells of a new size before the drawn one follows.
    if (! geometryDirty.exchange (false) && length == fittedLength)
        return;

    fittedLength = length;
    fitSegments (length);
}

void OxJuceScalableDynamicDisplayLevelMeter::fitSegments (int length)
{
    const auto step = getSegmentDb();
    const auto steps = (maxDb - minDb) / step;
    bottomDb = minDb;
    partDb = pixelsPerDb = 0.0f;
    barLength = 0;

    if (! (steps > 0.0f))
        return;

    const auto whole = truncated (steps);
    const auto fraction = steps - static_cast<float> (whole);
    const auto pixels = static_cast<float> (length), pixelsAndGap = pixels / steps;
    const auto isTooSmall = isVertical() ? pixelsAndGap <= kLeastForGaps : pixelsAndGap < kLeastForGaps;
    const auto gapInUse = noGaps || isTooSmall ? 0 : 1;
    const auto gapTotal = (fraction > 0.0f ? whole : whole - 1) * gapInUse;
    gap = gapInUse;

    const auto pixelsPerStep = truncated ((pixels - static_cast<float> (gapTotal)) / steps);
    pixelsPerDb = static_cast<float> (truncated (static_cast<float> (pixelsPerStep) / step));
    const auto segment = truncated (pixelsPerDb * step), pitch = segment + gapInUse;
    barLength = segment * whole + truncated (step * fraction * pixelsPerDb) + gapTotal;

    if (! (pixelsPerDb > 0.0f))
        return;

    const auto extra = pitch > 0 ? (length - barLength) / pitch : 0;
    barLength += pitch * extra;
    bottomDb = minDb - static_cast<float> (extra) * step;

    if (const auto rest = length - gapInUse - barLength; rest > 0)
        partDb = static_cast<float> (rest) / pixelsPerDb;

    barLength += truncated (pixelsPerDb * partDb);
}

juce::Rectangle<int> OxJuceScalableDynamicDisplayLevelMeter::getSegmentArea (float topDb, float lowDb,
                                                                             int& position) const
{
    const auto area = getDrawnLocalBounds();
    const auto size = truncated ((topDb - lowDb) * pixelsPerDb), far = position;

    if (size <= 0)
        return {};

    position -= size + gap;
    return isVertical() ? area.withY (far - size).withHeight (size)
                        : area.withX (area.getWidth() - far).withWidth (size);
}

// Scale ---------------------------------------------------------------------------------------------------------------

LevelMeterScale::Bar OxJuceScalableDynamicDisplayLevelMeter::getBar()
{
    const auto area = getDrawnLocalBounds();
    return { isVertical(), area.getWidth(), area.getHeight(), getBottomDb(), getTopDb() };
}

void OxJuceScalableDynamicDisplayLevelMeter::drawLabels()
{
    auto* const target = surface.get();

    if (target == nullptr)
        return;

    auto* const chosen = font.get();
    auto* const inUse = chosen != nullptr ? chosen : target->getFont (kLabelFontSize);
    const auto justification = isVertical() ? TextJustification::left : TextJustification::centre;
    const auto& texts = getLabelTexts();
    LabelPlacer placer (*this, getBar());
    target->glState.pending.colour = labelColour;

    for (std::size_t index = 0; index < texts.size(); ++index)
        if (const auto box = placer.place (index, inUse->measure (texts[index]), inUse->getHeight()))
            inUse->draw (*box, texts[index], justification);
}

void OxJuceScalableDynamicDisplayLevelMeter::paintLabels (juce::Graphics& graphics)
{
    const juce::Font plain (kPaintedHeight);
    const auto justification = isVertical() ? juce::Justification::centredLeft : juce::Justification::centred;
    const auto& texts = getLabelTexts();
    LabelPlacer placer (*this, getBar());
    graphics.setFont (plain);
    graphics.setColour (labelColour);

    for (std::size_t index = 0; index < texts.size(); ++index)
        if (const auto box = placer.place (index, plain.getStringWidth (texts[index]), truncated (kPaintedHeight)))
            graphics.drawText (texts[index], *box, justification, false);
}

void OxJuceScalableDynamicDisplayLevelMeter::drawTicks()
{
    auto* const target = surface.get();

    if (target == nullptr)
        return;

    const auto bar = getBar();
    target->glState.pending.colour = tickColour;

    for (std::size_t index = 0; index < getNumTicks(); ++index)
        for (const auto side : { Side::before, Side::after })
            if (const auto tick = placeTick (index, side, bar); ! tick.isEmpty())
                drawFilledRect (tick);
}

void OxJuceScalableDynamicDisplayLevelMeter::paintTicks (juce::Graphics& graphics)
{
    const auto bar = getBar();
    graphics.setColour (tickColour);

    for (std::size_t index = 0; index < getNumTicks(); ++index)
        for (const auto side : { Side::before, Side::after })
            graphics.fillRect (placeTick (index, side, bar));
}

// Pictures ------------------------------------------------------------------------------------------------------------

void OxJuceScalableDynamicDisplayLevelMeter::draw (int elapsedMs)
{
    if (getDrawnLocalBounds().isEmpty())
        return;

    OxJuceDynamicDisplayLevelMeter::draw (elapsedMs);

    if (showLabels)
        drawLabels();

    if (showTicks)
        drawTicks();
}

void OxJuceScalableDynamicDisplayLevelMeter::paint (juce::Graphics& graphics)
{
    const ScopedChange betweenFrames (*this);

    if (getDrawnLocalBounds().isEmpty())
        return;

    OxJuceDynamicDisplayLevelMeter::paint (graphics);

    if (showLabels)
        paintLabels (graphics);

    if (showTicks)
        paintTicks (graphics);
}
