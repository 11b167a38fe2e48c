// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ControlRig.h"
#include "metering/OxJuceScalableDynamicDisplayLevelMeter.h"

namespace
{

using Plain = OxJuceDynamicDisplayLevelMeter;
using Scalable = OxJuceScalableDynamicDisplayLevelMeter;
constexpr float silence = -1.0e10f;

/** A meter from -20 to 0 dB with the product's zones, and with a level and a clock that a test sets. */
template <typename Base>
struct Timed : Base, private OxJuceObserver
{
    Timed()
    {
        this->observer = this;
        this->setMinDb (-20.0f), this->setStepDb (0.5f), this->setSize (9, 200);
        std::copy_n (std::array { -21.0f, -9.0f, -3.0f, 0.0f }.begin(), 4, this->zoneLimits.begin());

        for (const std::size_t zone : { 0u, 1u, 2u, 3u })
            this->zoneColours[zone] =
                juce::Colour (std::array { 0xffc0c0c0, 0xffc0c0c0, 0xffffff00, 0xffff0000 }[zone]);
    }

    void reset() override {}
    void process (const juce::AudioSampleBuffer&) override {}
    float getLevelDb() override { return level; }
    float getInstantLevelDb() override { return level; }
    juce::Time getTime() const override { return juce::Time (now); }

    Relaxed<float> level = silence;
    Relaxed<juce::int64> now = juce::Time::currentTimeMillis() / 500 * 500 + 500;   // before any blinking
};

/** Writes down the segments that it paints. */
template <typename Base>
struct Recorded : Timed<Base>
{
    void paintSegment (juce::Graphics&, float topDb, float lowDb, juce::Colour colour, int& position) override
    {
        if (const auto area = this->getSegmentArea (topDb, lowDb, position); ! area.isEmpty())
            colours[lowDb] = colour.toString(), areas.push_back (area);
    }

    void take()
    {
        colours.clear(), areas.clear(), painted (1, 1, [this] (auto& graphics) { this->paint (graphics); });
    }

    /** The bottom of the segment that has the marker, in dB; 1 for none. */
    float markerDb()
    {
        take();
        const auto isMarker = [] (const auto& segment) { return segment.second.startsWith ("ff"); };
        const auto found = std::find_if (colours.begin(), colours.end(), isMarker);
        return found == colours.end() ? 1.0f : found->first;
    }

    std::map<float, juce::String> colours;     // by the bottom in dB
    std::vector<juce::Rectangle<int>> areas;   // from the bottom up
    using Base::barLength, Base::pixelsPerDb;
};

struct Meter : Recorded<Scalable>
{
    /** Gap, pixels per dB, length, bottom and part; then the first and the last segment, and how many there are. */
    juce::String getGeometry()
    {
        take();
        juce::String text;
        text << getGap() << ", " << pixelsPerDb << ", " << barLength << ", " << bottomDb << " -" << partDb << ":";

        for (const auto index : { std::size_t (0), areas.size() - 1 })
            text << " " << (index < areas.size() ? areas[index].toString() : "none");

        return text << " " << static_cast<int> (areas.size());
    }
    using Scalable::Bar, Scalable::LabelPlacer, Scalable::placeTick, Scalable::Side;
};

TEST (LevelMeterDisplayTest, FitsWholeSegmentsToAnySize)
{
    for (const auto& [orientation, length, minDb, noGaps, geometry] : {
             std::tuple (1, 200, -20.0f, false, "1, 8, 199, -20 -0: 0 195 9 4 0 0 9 4 40"),
             { 1, 200, -20.0f, true, "0, 10, 200, -20 -0: 0 195 9 5 0 0 9 5 40" },
             { 1, 100, -20.0f, false, "1, 2, 99, -25 -0: 0 98 9 1 0 0 9 1 50" },
             { 1, 60, -20.0f, false, "0, 2, 60, -30 -0: 0 59 9 1 0 0 9 1 60" },
             { 1, 207, -20.0f, false, "1, 8, 206, -20.5 -0.25: 0 204 9 2 0 -1 9 4 42" },
             { 1, 203, -20.25f, false, "1, 8, 202, -20.25 -0: 0 198 9 4 0 0 9 2 41" },
             { 1, 80, -20.0f, false, "0, 4, 80, -20 -0: 0 78 9 2 0 0 9 2 40" },
             { 0, 80, -20.0f, false, "1, 2, 79, -20 -0: 1 0 1 9 79 0 1 9 40" },
             { 1, 20, -20.0f, false, "0, 0, 0, -20 -0: none none 0" },
             { 1, 50, 0.0f, false, "1, 0, 0, 0 -0: none none 0" },
         })
    {
        Meter meter;
        meter.noGaps = noGaps;
        meter.setMinDb (minDb), meter.setOrientation (orientation);
        meter.setSize (orientation == 1 ? 9 : length, orientation == 1 ? length : 9);
        EXPECT_EQ (meter.getGeometry(), geometry) << length;
    }

    Recorded<Plain> plain;
    plain.setStepDb (3.0f), plain.setSize (200, 10);

    for (const auto& [orientation, ends] : { std::pair (0, "1 0 19 10 | 171 0 29 10"), { 1, "0 9 200 1 | 0 0 200 1" } })
    {
        plain.setOrientation (orientation), plain.take();
        EXPECT_EQ (plain.areas.size(), 7u) << "with borders at multiples of the step";
        EXPECT_EQ (plain.areas.front().toString() + " | " + plain.areas.back().toString(), ends);
    }
}

TEST (LevelMeterDisplayTest, HoldsItsPeakForTwoSecondsAndLetsItFallOutOfSight)
{
    Meter meter;
    const auto start = meter.now.get();
    const std::array<float, 4> rows[] { { 0, -5, 0, -5 },          { 1999, silence, 0, -5 },  { 2000, silence, 0, -5 },
                                        { 2090, NAN, 0, -6.5f },   { 2750, silence, 0, -15 }, { 3200, silence, 0, 1 },
                                        { 9000, silence, 1, -20 }, { 9001, -2, 0, -2 },       { 9002, -9, 0, -2 } };

    for (const auto& [ms, level, marginMode, marker] : rows)
    {
        meter.now = start + static_cast<int> (ms), meter.level = level;
        meter.marginMode = static_cast<juce::uint8> (marginMode);
        EXPECT_EQ (meter.markerDb(), marker) << ms;
    }

    meter.hold.holdSeconds = OxPeakHold::kForEver, meter.now += 100000, meter.level = silence;
    Hand (meter).play ("press 1 1");
    EXPECT_EQ (meter.markerDb(), -2.0f) << "held for ever, whoever clicks";
    meter.resetsOnClick = true;
    Hand (meter).play ("press 1 1");
    EXPECT_EQ (meter.markerDb(), 1.0f);
    meter.showHold = false, meter.showFastHold = true, meter.level = -3.0f;
    EXPECT_EQ (meter.markerDb(), -3.0f);
    meter.now += 250, meter.level = silence;
    EXPECT_EQ (meter.markerDb(), -5.0f) << "2 dB in the 150 ms after its 100";
}

TEST (LevelMeterDisplayTest, ColoursSegmentsByZoneLevelAndMarkerWhichBlinksAboveTheTop)
{
    const struct
    {
        float level, peak, limit, at;
        int ms = 0;
        juce::uint32 holdColour = 0;
        const char* colour;
    } rows[] { { silence, -50, -9, -20, 0, 0, "32c0c0c0" }, { NAN, -50, -9, -20, 0, 0, "32c0c0c0" },
               { -8.6f, -4, -9, -9.5f, 0, 0, "a0c0c0c0" },  { -8.6f, -4, -9, -9, 0, 0, "a0ffff00" },
               { -8.6f, -4, -8.55f, -9, 0, 0, "a0c0c0c0" }, { -8.75f, -4, -9, -9, 0, 0, "32ffff00" },
               { -12, -9, -9, -9, 0, 0, "ffc0c0c0" },       { -12, -8.9f, -9, -9, 0, 0, "ffffff00" },
               { -12, -8.9f, -9, -8.5f, 0, 0, "32ffff00" }, { -12, -9, -9, -9, 0, 0x80123456, "ff123456" },
               { 0.1f, -4, -9, -1, 0, 0, "a0ff0000" },      { 0.1f, -4, -9, -0.5f, 249, 0, "ffffffff" },
               { 0.1f, -4, -9, -0.5f, 250, 0, "ffff0000" }, { 0.1f, -4, -9, -0.5f, 499, 0xff00ff00, "ff00ff00" },
               { 0.1f, -4, -9, -0.5f, 500, 0, "ffffffff" }, { 0, -4, -9, -0.5f, 0, 0, "ffff0000" } };

    for (const auto& row : rows)
    {
        Meter meter;
        meter.zoneLimits[1] = row.limit, meter.holdColour = juce::Colour (row.holdColour);
        meter.level = row.level, meter.now += row.ms;
        meter.hold.feed (row.peak, meter.getTime()), meter.take();
        EXPECT_EQ (meter.colours[row.at], row.colour) << row.level << " at " << row.at << ", " << row.ms << " ms";
    }
}

TEST (LevelMeterDisplayTest, PlacesTicksAndLabelsThatDoNotOverlap)
{
    Meter meter;
    const auto places = [&] (const Meter::Bar& bar)
    {
        Meter::LabelPlacer placer (meter, bar);
        juce::StringArray found;

        for (std::size_t index = 0; index < meter.getLabelTexts().size(); ++index)
            if (const auto box = placer.place (index, 6, 12))
                found.add (meter.getLabelTexts()[index] + ": " + box->toString());

        for (const std::size_t index : { 0u, 1u, 2u })
            for (const auto side : { Meter::Side::before, Meter::Side::after })
                if (const auto tick = meter.placeTick (index, side, bar); ! tick.isEmpty())
                    found.add (tick.toString());

        return found.joinIntoString (" | ");
    };
    const Meter::Bar upright { true, 10, 128, -16.0f, 0.0f }, level { false, 129, 10, -16.0f, 0.0f };
    meter.setLabelValues ({ 3, 0, -1, -2, -3, -4, -17 }), meter.setTickValues ({ 3, 0, -4 });
    meter.setLabelOffsets ({ {}, { 5, 0 } }), meter.setTickOffsets ({ {}, { 0, 2 } });
    meter.labelOffset = juce::Point (0, 1), meter.tickOffsetRight = juce::Point (12, 0);
    meter.ticksRight = meter.ticksAbove = true;
    EXPECT_EQ (places (upright), "0: -9 -5 6 12 | -2: -14 11 6 12 | -4: -14 27 6 12 | 23 2 3 1 | 23 31 3 1");
    EXPECT_EQ (places (level),
               "0: 131 19 6 12 | -1: 117 19 6 12 | -2: 109 19 6 12 | -3: 101 19 6 12 | -4: 93 19 6 12 | "
               "128 -2 1 3 | 96 -4 1 3");
    meter.labelsFirstSide = false, meter.labelsOppositeSide = true;
    meter.setLabelValues ({ 1, -2 }), meter.setLabelSigns (true, false), meter.ticksRight = meter.ticksAbove = false;
    EXPECT_EQ (places (upright) + " | " + places (level), "2: 23 11 6 12 | 2: 114 -19 6 12");
    EXPECT_EQ (meter.getLabelTexts().front(), "+1");
}

TEST (LevelMeterDisplayTest, ShowsTheSamePictureByBothRenderers)
{
    ControlRig rig (80, 230);
    Timed<Scalable> meter;
    meter.setTickValues ({ 0, -3, -6, -9, -12, -15, -18, -21, -24 });
    meter.tickColour = juce::Colour (0xff969696);
    meter.showTicks = meter.ticksRight = true, meter.tickOffsetRight = juce::Point (12, 0);
    meter.setBounds (30, 10, 20, 207);
    meter.level = -5.1f, meter.hold.feed (-2.2f, meter.getTime());
    rig.add (meter);
    const auto twin = [&] { return painted (80, 230, [&] (auto& g) { g.setOrigin (30, 10), meter.paint (g); }); };
    const auto picture = rig.picture();
    EXPECT_TRUE (looksLike (twin(), picture));

    meter.showLabels = true;
    EXPECT_EQ (rig.allocationsOfAFrame(), 0);
    const auto labels = difference (picture, rig.picture());
    EXPECT_TRUE (labels.largest == 255 && labels.numPixels > 100) << labels.numPixels;

    meter.showLabels = meter.showTicks = false, meter.observer = nullptr;
    const juce::Rectangle<int> area (31, 11, 18, 205);
    const auto placeholder = rig.picture();
    EXPECT_TRUE (looksLike (twin().getClippedImage (area), placeholder.getClippedImage (area)));
    EXPECT_EQ (placeholder.getPixelAt (40, 10), juce::Colour (0xffc864c8));
    rig.editor.reset();
}

}   // namespace
