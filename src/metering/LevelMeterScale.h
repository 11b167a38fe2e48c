// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxOglComponentUser.h"

#include <optional>
#include <vector>

/** Mix-in of a level meter that has numbers and tick marks beside its bar: what they say and where they stand, in the
    meter's own pixels. Words may be set at any time; lists are replaced between two frames [message thread]. */
class LevelMeterScale : public virtual OxOglComponentUser
{
public:
    using Offset = juce::Point<int>;
    using Offsets = std::vector<Offset>;   // by index; what is missing is not moved

    /** Where the ticks stand: before is left of an upright bar and above a level one. */
    enum class Side
    {
        before,
        after
    };

    LevelMeterScale();

    void setLabelValues (std::vector<int> newValues);   // dB
    void setLabelOffsets (Offsets newOffsets);
    void setTickValues (std::vector<int> newValues);   // dB
    void setTickOffsets (Offsets newOffsets);

    /** @param plus      positive labels get "+"
        @param keepMinus negative labels keep their "-" */
    void setLabelSigns (bool plus, bool keepMinus);

    /** One for each label value. */
    const std::vector<juce::String>& getLabelTexts() const noexcept { return labelTexts; }

    Relaxed<bool> showLabels = false;
    Relaxed<juce::Colour> labelColour = juce::Colours::white;
    Relaxed<int> labelGap = 8;                  // pixels from the bar
    Relaxed<bool> labelsFirstSide = true;       // left of an upright bar, or else right of it
    Relaxed<bool> labelsOppositeSide = false;   // above a level bar, or else below it
    Relaxed<Offset> labelOffset = Offset();     // of every label
    Relaxed<bool> showTicks = false;
    Relaxed<juce::Colour> tickColour = juce::Colours::white;
    Relaxed<int> tickLength = 3;                                             // pixels
    Relaxed<bool> ticksLeft = false, ticksRight = false;                     // of an upright bar
    Relaxed<bool> ticksAbove = false, ticksBelow = false;                    // of a level bar
    Relaxed<Offset> tickOffsetLeft = Offset(), tickOffsetRight = Offset();   // also above and below

protected:
    /** The bar that the scale belongs to. */
    struct Bar
    {
        bool isVertical;
        int width, height;       // pixels
        float bottomDb, topDb;   // bottom below top

        bool contains (int valueDb) const noexcept;
        float shareOf (int valueDb) const noexcept;   // 0 at the bottom, 1 at the top
    };

    /** Goes through the labels in their order and says where each one stands, or that it does not: it is off the scale, or
        would overlap the last one that stands. */
    class LabelPlacer
    {
    public:
        LabelPlacer (const LevelMeterScale& scaleToPlace, const Bar& barBesideIt) :
            scale (scaleToPlace), bar (barBesideIt)
        {
        }

        std::optional<juce::Rectangle<int>> place (std::size_t index, int textWidth, int textHeight);

    private:
        const LevelMeterScale& scale;
        const Bar bar;
        int lastY = -20;
    };

    /** The pixels of a tick; empty if there is none on this side. */
    juce::Rectangle<int> placeTick (std::size_t index, Side side, const Bar& bar) const;

    std::size_t getNumTicks() const noexcept { return tickValues.size(); }

private:
    void setLabels (std::vector<int> newValues, bool plus, bool keepMinus);
    bool hasTicks (Side side, bool isVertical) const noexcept;

    std::vector<int> labelValues, tickValues;
    std::vector<juce::String> labelTexts;
    Offsets labelOffsets, tickOffsets;
    bool plusSign = true, keepMinusSign = true;   // [message thread]
};
