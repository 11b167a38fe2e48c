// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ControlRig.h"
#include "metering/OxJuceScalableDynamicDisplayLevelMeter.h"

namespace
{

using Scalable = OxJuceScalableDynamicDisplayLevelMeter;
constexpr float silence = -1.0e10f;

/** An upright meter from -20 to 0 dB with the product's zones, and with a level and a clock that a test sets. */
struct Timed : Scalable, private OxJuceObserver
{
    Timed()
    {
        observer = this;
        setMinDb (-20.0f), setStepDb (0.5f), setOrientation (vertical), setSize (9, 200);
        std::copy_n (std::array { -21.0f, -9.0f, -3.0f, 0.0f }.begin(), 4, zoneLimits.begin());

        for (const std::size_t zone : { 0u, 1u, 2u, 3u })
            zoneColours[zone] = juce::Colour (std::array { 0xffc0c0c0, 0xffc0c0c0, 0xffffff00, 0xffff0000 }[zone]);
    }

    void reset() override {}
    void process (const juce::AudioSampleBuffer&) override {}
    float getLevelDb() override { return level; }
    float getInstantLevelDb() override { return level; }
    double getMoment() const override { return now; }

    Relaxed<float> level = silence;
    Relaxed<double> now = std::ceil (AnimationClock::read() / 500.0) * 500.0;   // before any blinking
};

/** Writes down the segments that it paints. */
struct Meter : Timed
{
    void paintSegment (juce::Graphics&, float topDb, float lowDb, juce::Colour colour, int& position) override
    {
        if (const auto area = getSegmentArea (topDb, lowDb, position); ! area.isEmpty())
            colours[lowDb] = colour.toString(), areas.push_back (area);
    }

    void take()
    {
        colours.clear(), areas.clear(), painted (1, 1, [this] (auto& graphics) { paint (graphics); });
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
};

TEST (LevelMeterDisplayTest, FitsWholeSegmentsToAnySize)
{
    for (const auto& [height, gap, first, last, count] : { std::tuple (200, 1, "0 195 9 4", "0 0 9 4", 40u),
                                                           { 100, 1, "0 98 9 1", "0 0 9 1", 50u },
                                                           { 60, 0, "0 59 9 1", "0 0 9 1", 60u },
                                                           { 207, 1, "0 204 9 2", "0 -1 9 4", 42u },
                                                           { 20, 0, "", "", 0u } })
    {
        Meter meter;
        meter.setSize (9, height), meter.take();
        EXPECT_EQ (std::pair (meter.getGap(), meter.areas.size()), std::pair (gap, std::size_t (count))) << height;
        EXPECT_TRUE (meter.areas.empty() ||
                     (meter.areas.front().toString() == first && meter.areas.back().toString() == last));
    }
}

TEST (LevelMeterDisplayTest, HoldsItsPeakForTwoSecondsAndLetsItFallOutOfSightWhateverTheClockDoes)
{
    Meter meter;
    const auto start = meter.now.get();
    const std::array<float, 3> rows[] { { 0, -5, -5 },        { 1999, silence, -5 },   { 2000, silence, -5 },
                                        { 2090, NAN, -6.5f }, { 2750, INFINITY, -15 }, { 3200, silence, 1 },
                                        { 9001, -2, -2 },     { 9002, -9, -2 },        { -3.6e6f, -9, -2 },
                                        { -3598001, -9, -2 }, { -3597911, -9, -3.5f } };

    for (const auto& [ms, level, marker] : rows)
    {
        meter.now = start + static_cast<int> (ms), meter.level = level;
        EXPECT_EQ (meter.markerDb(), marker) << ms;
    }
}

TEST (LevelMeterDisplayTest, ColoursSegmentsByZoneLevelAndMarkerWhichBlinksAboveTheTop)
{
    for (const auto& [level, peak, at, ms, colour] : { std::tuple (silence, -50.0f, -20.0f, 0, "32c0c0c0"),
                                                       { NAN, -50.0f, -20.0f, 0, "32c0c0c0" },
                                                       { -8.6f, -4.0f, -9.5f, 0, "a0c0c0c0" },
                                                       { -8.6f, -4.0f, -9.0f, 0, "a0ffff00" },
                                                       { -8.75f, -4.0f, -9.0f, 0, "32ffff00" },
                                                       { -12.0f, -9.0f, -9.0f, 0, "ffc0c0c0" },
                                                       { -12.0f, -8.9f, -9.0f, 0, "ffffff00" },
                                                       { -12.0f, -8.9f, -8.5f, 0, "32ffff00" },
                                                       { 0.1f, -4.0f, -1.0f, 0, "a0ff0000" },
                                                       { 0.1f, -4.0f, -0.5f, 249, "ffffffff" },
                                                       { 0.1f, -4.0f, -0.5f, 250, "ffff0000" },
                                                       { 0.1f, -4.0f, -0.5f, 500, "ffffffff" },
                                                       { 0.0f, -4.0f, -0.5f, 0, "ffff0000" } })
    {
        Meter meter;
        meter.level = level, meter.now += ms;
        meter.hold.feed (peak, 0.0), meter.take();
        EXPECT_EQ (meter.colours[at], colour) << level << " at " << at << ", " << ms << " ms";
    }
}

TEST (LevelMeterDisplayTest, ShowsTheSamePictureByBothRenderers)
{
    ControlRig rig (80, 230);
    Timed meter;
    meter.setTickValues ({ 0, -3, -6, -9, -12, -15, -18, -21, -24 });
    meter.tickColour = juce::Colour (0xff969696);
    meter.showTicks = meter.ticksRight = true, meter.tickOffsetRight = juce::Point (12, 0);
    meter.setBounds (30, 10, 20, 207);
    meter.level = -5.1f, meter.hold.feed (-2.2f, 0.0);
    rig.add (meter);
    const auto twin = [&] { return painted (80, 230, [&] (auto& g) { g.setOrigin (30, 10), meter.paint (g); }); };
    const auto picture = rig.picture();
    EXPECT_TRUE (looksLike (twin(), picture));

    meter.showLabels = true;
    EXPECT_EQ (rig.allocationsOfAFrame(), 0);
    const auto labels = difference (picture, rig.picture());
    EXPECT_TRUE (labels.largest == 255 && labels.numPixels > 100) << labels.numPixels;
    rig.editor.reset();
}

}   // namespace
