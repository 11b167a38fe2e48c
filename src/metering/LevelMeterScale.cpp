// SPDX-License-Identifier: GPL-3.0-or-later
#include "metering/LevelMeterScale.h"

namespace
{

const std::vector<int> kUsualValues { 3, 0, -3, -6, -9, -12, -15, -18, -27, -36, -45, -54 };   // dB
constexpr int kAllowedOverlap = 3;                                                             // pixels, of two labels
constexpr int kTickToLabel = 7;   // pixels by which ticks stand nearer to the bar than labels

LevelMeterScale::Offset find (const LevelMeterScale::Offsets& offsets, std::size_t index)
{
    return index < offsets.size() ? offsets[index] : LevelMeterScale::Offset();
}

juce::String toText (int value, bool plus, bool keepMinus)
{
    if (value < 0 && ! keepMinus)
        return juce::String (value).trimCharactersAtStart ("-");

    return (plus && value > 0 ? "+" : "") + juce::String (value);
}

int truncated (float pixels)
{
    return static_cast<int> (pixels);
}

}   // namespace

LevelMeterScale::LevelMeterScale() : tickValues (kUsualValues)
{
    setLabels (kUsualValues, plusSign, keepMinusSign);
}

// Lists ---------------------------------------------------------------------------------------------------------------

void LevelMeterScale::setLabels (std::vector<int> newValues, bool plus, bool keepMinus)
{
    std::vector<juce::String> newTexts;

    for (const auto value : newValues)
        newTexts.push_back (toText (value, plus, keepMinus));

    plusSign = plus;
    keepMinusSign = keepMinus;
    const ScopedChange change (*this);
    labelValues.swap (newValues);
    labelTexts.swap (newTexts);
}

void LevelMeterScale::setLabelValues (std::vector<int> newValues)
{
    setLabels (std::move (newValues), plusSign, keepMinusSign);
}

void LevelMeterScale::setLabelSigns (bool plus, bool keepMinus)
{
    setLabels (labelValues, plus, keepMinus);
}

void LevelMeterScale::setLabelOffsets (Offsets newOffsets)
{
    const ScopedChange change (*this);
    labelOffsets.swap (newOffsets);
}

void LevelMeterScale::setTickValues (std::vector<int> newValues)
{
    const ScopedChange change (*this);
    tickValues.swap (newValues);
}

void LevelMeterScale::setTickOffsets (Offsets newOffsets)
{
    const ScopedChange change (*this);
    tickOffsets.swap (newOffsets);
}

// Places --------------------------------------------------------------------------------------------------------------

bool LevelMeterScale::Bar::contains (int valueDb) const noexcept
{
    const auto value = static_cast<float> (valueDb);
    return bottomDb < topDb && value >= bottomDb && value <= topDb;
}

float LevelMeterScale::Bar::shareOf (int valueDb) const noexcept
{
    return (static_cast<float> (valueDb) - bottomDb) / (topDb - bottomDb);
}

std::optional<juce::Rectangle<int>> LevelMeterScale::LabelPlacer::place (std::size_t index, int textWidth,
                                                                         int textHeight)
{
    const auto value = scale.labelValues[index];

    if (! bar.contains (value))
        return {};

    const int gap = scale.labelGap;
    const auto share = bar.shareOf (value);
    const auto offset = scale.labelOffset.get() + find (scale.labelOffsets, index);

    if (! bar.isVertical)
    {
        const auto along = truncated (share * static_cast<float> (bar.width));
        const auto x = juce::jlimit (0, bar.width, along) - textWidth / 2;
        const auto y = scale.labelsOppositeSide ? -(gap + textHeight) : bar.height + gap;
        return juce::Rectangle (x, y, textWidth, textHeight) + offset;
    }

    const auto y = truncated ((1.0f - share) * static_cast<float> (bar.height)) - textHeight / 2;

    if (lastY > y - textHeight + kAllowedOverlap)
        return {};

    lastY = y;
    const auto x = scale.labelsFirstSide ? -(gap + textWidth) : bar.width + gap;
    return juce::Rectangle (x, y, textWidth, textHeight) + offset;
}

bool LevelMeterScale::hasTicks (Side side, bool isVertical) const noexcept
{
    if (isVertical)
        return side == Side::before ? ticksLeft : ticksRight;

    return side == Side::before ? ticksAbove : ticksBelow;
}

juce::Rectangle<int> LevelMeterScale::placeTick (std::size_t index, Side side, const Bar& bar) const
{
    const auto value = tickValues[index];

    if (! bar.contains (value) || ! hasTicks (side, bar.isVertical))
        return {};

    const int length = tickLength;
    const auto gap = labelGap - kTickToLabel;
    const auto share = bar.shareOf (value);
    const auto isBefore = side == Side::before;
    const auto offset = find (tickOffsets, index) + (isBefore ? tickOffsetLeft : tickOffsetRight).get();
    const auto across = isBefore ? -(length + gap) : (bar.isVertical ? bar.width : bar.height) + gap;

    if (bar.isVertical)
        return juce::Rectangle (across, truncated ((1.0f - share) * static_cast<float> (bar.height - 1)), length, 1) +
               offset;

    const auto along = truncated (share * static_cast<float> (bar.width - 1));
    return juce::Rectangle (juce::jlimit (0, bar.width, along), across, 1, length) + offset;
}
