// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceControl.h"
#include "metering/OxJuceDynamicDisplay.h"
#include "metering/OxPeakHold.h"
#include "platform/AnimationClock.h"

#include <array>

/** An observer's level, frame by frame, as a row of small segments that light up to it, and a marker that stays at the peak.
    Those that are not lit are dim, not absent; nothing is brighter than a marker.

    A control in name alone: it stands for no parameter, and no lock or disablement fades it. Words may be set at any
    time; zones and holds are set before rendering runs. Levels, holds and geometry belong to the render thread. */
class OxJuceDynamicDisplayLevelMeter : public OxJuceControl, public OxJuceDynamicDisplay
{
public:
    /** The numbers that `setOrientation` takes. */
    enum Orientation : int
    {
        horizontal = 0,
        vertical = 1
    };

    static constexpr std::size_t kNumZones = 20;

    explicit OxJuceDynamicDisplayLevelMeter (const juce::String& nameOfMeter = "Level meter");

    /** Lets both markers start anew [message thread]. */
    virtual void resetHolds();

    // Where the bar begins and ends, in dB [render thread]
    virtual float getBottomDb() { return minDb; }
    virtual float getTopDb() { return maxDb; }

    virtual void setMaxDb (float newMaxDb);
    virtual void setMinDb (float newMinDb);
    virtual void setStepDb (float newStepDb);   // of one segment
    virtual void setOrientation (int newOrientation);
    virtual void setGap (int pixels);   // between segments

    virtual float getMaxDb() const { return maxDb; }
    virtual float getMinDb() const { return minDb; }
    virtual float getStepDb() const { return stepDb; }
    virtual int getOrientation() const { return orientation; }
    virtual int getGap() const { return gap; }

    /** Reads the observer, if there is one, and shows both holds its level [render thread]. */
    virtual void updateHolds();

    /** Fits the bar to the meter's size [render thread]. */
    virtual void updateGeometry();

    // OxOglChildComponent
    void draw (int elapsedMs) override;
    const char* getTypeName() const override { return "OxJuceDynamicDisplayLevelMeter"; }

    // juce::Component. The software picture reads the observer as a frame does, between two frames.
    void paint (juce::Graphics& graphics) override;
    void mouseDown (const juce::MouseEvent& event) override;

    Relaxed<bool> showHold = true, showFastHold = false;
    Relaxed<juce::uint8> marginMode = juce::uint8 { 0 };   // 1: a marker ends on the bar; else 10 dB below it
    Relaxed<bool> blinkOver = true;                        // while the peak is above the top
    std::array<float, kNumZones> zoneLimits;   // dB, ascending: a level belongs to the first that it does not exceed
    std::array<juce::Colour, kNumZones> zoneColours;
    Relaxed<juce::Colour> holdColour = juce::Colour (juce::uint32 { 0 });   // 0 for that of the zone
    OxPeakHold hold, fastHold;
    Relaxed<juce::uint8> litAlpha = juce::uint8 { 160 }, unlitAlpha = juce::uint8 { 50 };
    Relaxed<bool> resetsOnClick = false;

protected:
    /** The moment of a reading, of the AnimationClock. */
    virtual double getMoment() const { return AnimationClock::read(); }

    /** Called when a setter has changed the scale [message thread]. */
    virtual void invalidateGeometry() {}

    /** The bottom of the first whole segment; a part of one may stand below it. */
    virtual float getFirstBorderDb() { return getBottomDb(); }

    /** The top of the segment that begins here, were it not for the end of the bar. */
    virtual float getNextBorderDb (float fromDb) const;

    /** The pixels of a segment.
        @param position pixels from the far end of the bar; it begins at `barLength`, and a class may move it on */
    virtual juce::Rectangle<int> getSegmentArea (float topDb, float bottomDb, int& position) const;

    virtual void drawSegment (float topDb, float bottomDb, juce::Colour colour, int& position);
    virtual void paintSegment (juce::Graphics& graphics, float topDb, float bottomDb, juce::Colour colour,
                               int& position);

    bool isVertical() const noexcept { return orientation == vertical; }
    int getLength() const noexcept;   // of the meter along the bar
    float getSegmentDb() const noexcept;

    float pixelsPerDb = 0.0f;
    int barLength = 0;   // pixels from the origin of the scale
    Relaxed<float> maxDb = 0.0f, minDb = -60.0f, stepDb = 1.0f;
    Relaxed<int> orientation = int { vertical }, gap = 1;

private:
    struct Reading;

    Reading takeReading();
    juce::Colour zoneColour (float levelDb) const;
    juce::Colour colourSegment (const Reading& reading, float topDb, float bottomDb, juce::uint8& alpha) const;
    juce::Colour getPlaceholderColour() const;

    template <typename Action>
    void forEachSegment (Action&& action);

    AnimationClock clock;       // of the holds
    float levelDb = -1000.0f;   // as read last [render thread]
};
