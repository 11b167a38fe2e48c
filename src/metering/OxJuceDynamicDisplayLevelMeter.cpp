// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/OxJuceDynamicDisplayLevelMeter.h"

#include "gui/OxOglComponent.h"

namespace
{

constexpr float kBeyondAnyLevel = 150.0f;   // dB
constexpr float kZoneTolerance = 1.0e-5f;   // dB
constexpr float kFinestStep = 0.01f;        // dB: a smaller segment would only cost time
constexpr float kHoldMargin = 10.0f;        // dB that a marker may sink below the bar
constexpr float kBelowTop = 0.0001f;        // dB: keeps a marker in the topmost segment
constexpr double kBlinkPeriod = 500.0;      // milliseconds, half of them white
constexpr juce::uint8 kMarkerAlpha = 255;
const juce::Colour kPlaceholderFrame { 0xc8ff80ff };

float between (float lowest, float highest, float value)
{
    return std::min (highest, std::max (lowest, value));   // what is no number is lowest
}

}   // namespace

/** What one picture shows: levels in dB, within what can be seen. */
struct OxJuceDynamicDisplayLevelMeter::Reading
{
    float level, peak, fastPeak;
    bool isWhite;   // the peak, in this half of its blinking
};

OxJuceDynamicDisplayLevelMeter::OxJuceDynamicDisplayLevelMeter (const juce::String& nameOfMeter) :
    OxJuceControl (nameOfMeter)
{
    zoneLimits.fill (kBeyondAnyLevel);
    zoneColours.fill (juce::Colour (0xff727272));
    fastHold.holdSeconds = 0.1f;
    OxJuceDynamicDisplayLevelMeter::resetHolds();
    setPaintingIsUnclipped (true);
}

// Settings ------------------------------------------------------------------------------------------------------------

void OxJuceDynamicDisplayLevelMeter::setMaxDb (float newMaxDb)
{
    maxDb = newMaxDb;
    invalidateGeometry();
}

void OxJuceDynamicDisplayLevelMeter::setMinDb (float newMinDb)
{
    minDb = newMinDb;
    invalidateGeometry();
}

void OxJuceDynamicDisplayLevelMeter::setStepDb (float newStepDb)
{
    stepDb = newStepDb;
    invalidateGeometry();
}

void OxJuceDynamicDisplayLevelMeter::setOrientation (int newOrientation)
{
    orientation = newOrientation;
    invalidateGeometry();
}

void OxJuceDynamicDisplayLevelMeter::setGap (int pixels)
{
    gap = pixels;
    invalidateGeometry();
}

// Levels --------------------------------------------------------------------------------------------------------------

void OxJuceDynamicDisplayLevelMeter::resetHolds()
{
    const ScopedChange change (*this);
    hold.reset (clock.getTime());
    fastHold.reset (clock.getTime());
}

void OxJuceDynamicDisplayLevelMeter::updateHolds()
{
    auto* const source = observer.get();
    clock.stepTo (getMoment());

    if (source == nullptr)
        return;

    levelDb = source->getLevelDb();
    hold.feed (levelDb, clock.getTime());
    fastHold.feed (levelDb, clock.getTime());
}

OxJuceDynamicDisplayLevelMeter::Reading OxJuceDynamicDisplayLevelMeter::takeReading()
{
    updateHolds();
    const auto bottom = getBottomDb(), top = getTopDb();
    const auto markerBottom = marginMode == 1 ? bottom : bottom - kHoldMargin;
    const auto peak = hold.read (clock.getTime()), fastPeak = fastHold.read (clock.getTime());
    const auto isWhite = blinkOver && peak > top && std::fmod (getMoment(), kBlinkPeriod) < kBlinkPeriod / 2.0;
    return { between (bottom, top, levelDb), between (markerBottom, top - kBelowTop, peak),
             between (markerBottom, top - kBelowTop, fastPeak), isWhite };
}

juce::Colour OxJuceDynamicDisplayLevelMeter::zoneColour (float level) const
{
    std::size_t zone = 0;

    while (zone + 1 < kNumZones && level > zoneLimits[zone] + kZoneTolerance)
        ++zone;

    return zoneColours[zone];
}

// Segments ------------------------------------------------------------------------------------------------------------

int OxJuceDynamicDisplayLevelMeter::getLength() const noexcept
{
    const auto area = getDrawnLocalBounds();
    return isVertical() ? area.getHeight() : area.getWidth();
}

float OxJuceDynamicDisplayLevelMeter::getSegmentDb() const noexcept
{
    return std::max (kFinestStep, stepDb.get());
}

void OxJuceDynamicDisplayLevelMeter::updateGeometry()
{
    const auto length = getLength();
    const auto range = maxDb - minDb;
    pixelsPerDb = range > 0.0f ? static_cast<float> (length) / range : 0.0f;
    const auto toTop = static_cast<int> (pixelsPerDb * maxDb);
    barLength = isVertical() ? toTop : length - toTop;
}

float OxJuceDynamicDisplayLevelMeter::getNextBorderDb (float fromDb) const
{
    constexpr float slack = 0.001f;   // of a segment: a border that rounding put a little too low
    const auto step = getSegmentDb();
    return (std::floor (fromDb / step + slack) + 1.0f) * step;
}

juce::Rectangle<int> OxJuceDynamicDisplayLevelMeter::getSegmentArea (float topDb, float bottomDb, int&) const
{
    const auto area = getDrawnLocalBounds();
    const auto length = std::max (1, static_cast<int> ((topDb - bottomDb) * pixelsPerDb - static_cast<float> (gap)));
    const auto origin = static_cast<float> (barLength), toTop = pixelsPerDb * topDb;

    if (isVertical())
        return area.withY (static_cast<int> (origin - toTop)).withHeight (length);

    return area.withX (static_cast<int> (origin + toTop) - length).withWidth (length);
}

/** @param alpha carried from each segment to the next: what is dim stays dim but for a marker */
juce::Colour OxJuceDynamicDisplayLevelMeter::colourSegment (const Reading& reading, float topDb, float bottomDb,
                                                            juce::uint8& alpha) const
{
    const auto holds = [=] (float level) { return level >= bottomDb && level < topDb; };
    auto colour = zoneColour (topDb);

    if ((topDb + bottomDb) / 2.0f >= reading.level)
        alpha = unlitAlpha;

    if (alpha != unlitAlpha && holds (reading.level))
        colour = zoneColour (reading.level);

    if (showFastHold && holds (reading.fastPeak))
    {
        alpha = kMarkerAlpha;
        colour = zoneColour (reading.fastPeak);
    }

    if (showHold && holds (reading.peak))
    {
        const auto marker = holdColour.get();
        alpha = kMarkerAlpha;
        colour = marker.getARGB() == 0 ? zoneColour (reading.peak) : marker;

        if (reading.isWhite)
            colour = juce::Colours::white;
    }

    return colour.withAlpha (alpha);
}

/** Goes up the bar with a fresh reading: one walk for both renderers. */
template <typename Action>
void OxJuceDynamicDisplayLevelMeter::forEachSegment (Action&& action)
{
    updateGeometry();
    const auto reading = takeReading();
    const auto bottom = getBottomDb(), first = getFirstBorderDb(), top = getTopDb();
    auto alpha = litAlpha.get();
    auto position = barLength;

    if (! (pixelsPerDb > 0.0f))
        return;

    if (bottom < first)
    {
        if ((bottom + first) / 2.0f >= reading.level)
            alpha = unlitAlpha;

        action (first, bottom, zoneColour (bottom).withAlpha (alpha), position);
    }

    for (auto from = first; from < top;)
    {
        const auto to = std::min (getNextBorderDb (from), top);

        if (! (to > from))
            return;

        action (to, from, colourSegment (reading, to, from, alpha), position);
        from = to;
    }
}

// Pictures ------------------------------------------------------------------------------------------------------------

void OxJuceDynamicDisplayLevelMeter::drawSegment (float topDb, float bottomDb, juce::Colour colour, int& position)
{
    const auto area = getSegmentArea (topDb, bottomDb, position);

    if (area.isEmpty())
        return;

    surface.get()->glState.pending.colour = colour;
    drawFilledRect (area);
}

void OxJuceDynamicDisplayLevelMeter::paintSegment (juce::Graphics& graphics, float topDb, float bottomDb,
                                                   juce::Colour colour, int& position)
{
    graphics.setColour (colour);
    graphics.fillRect (getSegmentArea (topDb, bottomDb, position));
}

/** Tells that a meter has nothing to read: it shimmers, each meter in its own time. */
juce::Colour OxJuceDynamicDisplayLevelMeter::getPlaceholderColour() const
{
    const auto lowByte = static_cast<juce::uint8> (reinterpret_cast<juce::pointer_sized_uint> (this));
    const auto place = static_cast<float> (std::fmod (getMoment(), 1000.0)) * 0.001f + lowByte / 255.0f;
    const auto strength = (place > 1.0f ? place - 1.0f : place) * 0.5f + 0.25f;
    const auto channel = static_cast<juce::uint8> (strength * 255.0f);
    return juce::Colour (channel, juce::uint8 { 0 }, channel, juce::uint8 { 50 });
}

void OxJuceDynamicDisplayLevelMeter::draw (int)
{
    auto* const target = surface.get();
    const auto area = getDrawnLocalBounds();

    if (target == nullptr || area.isEmpty())
        return;

    if (observer != nullptr)
        return forEachSegment ([this] (float topDb, float bottomDb, juce::Colour colour, int& position)
                               { drawSegment (topDb, bottomDb, colour, position); });

    target->glState.pending.colour = kPlaceholderFrame;
    drawRectOutline (area);
    target->glState.pending.colour = getPlaceholderColour();
    drawFilledRect (area.reduced (1));
}

void OxJuceDynamicDisplayLevelMeter::paint (juce::Graphics& graphics)
{
    const ScopedChange betweenFrames (*this);
    const auto area = getDrawnLocalBounds();

    if (area.isEmpty())
        return;

    if (observer != nullptr)
        return forEachSegment ([&] (float topDb, float bottomDb, juce::Colour colour, int& position)
                               { paintSegment (graphics, topDb, bottomDb, colour, position); });

    graphics.setColour (kPlaceholderFrame);
    graphics.drawRect (area);
    graphics.setColour (getPlaceholderColour());
    graphics.fillRect (area.reduced (1));
}

void OxJuceDynamicDisplayLevelMeter::mouseDown (const juce::MouseEvent&)
{
    if (resetsOnClick)
        resetHolds();
}
