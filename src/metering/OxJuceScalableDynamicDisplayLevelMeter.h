// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxJuceOglFont.h"
#include "metering/LevelMeterScale.h"
#include "metering/OxJuceDynamicDisplayLevelMeter.h"

/** A level meter whose segments all have the same whole number of pixels at any size: what is left of the meter's length is
    filled by further segments below the scale, and the last of them may be a part. It can show a scale beside the bar. */
class OxJuceScalableDynamicDisplayLevelMeter : public OxJuceDynamicDisplayLevelMeter, public LevelMeterScale
{
public:
    explicit OxJuceScalableDynamicDisplayLevelMeter (const juce::String& nameOfMeter = "Scalable level meter");

    virtual void setTickLength (int pixels) { tickLength = pixels; }

    /** Has the segments fitted anew before they are drawn next [any thread]. */
    void invalidateGeometry() override { geometryDirty = true; }

    // OxJuceDynamicDisplayLevelMeter
    float getBottomDb() override;
    void updateGeometry() override;

    // OxOglChildComponent
    void draw (int elapsedMs) override;
    const char* getTypeName() const override { return "OxJuceScalableDynamicDisplayLevelMeter"; }

    // juce::Component
    void paint (juce::Graphics& graphics) override;
    void resized() override;

    Relaxed<bool> noGaps = false;             // set before the scale: segments touch at any size
    Relaxed<OxJuceOglFont*> font = nullptr;   // of the labels, not owned; null: of 10 points

protected:
    float getFirstBorderDb() override;
    float getNextBorderDb (float fromDb) const override { return fromDb + getSegmentDb(); }
    juce::Rectangle<int> getSegmentArea (float topDb, float bottomDb, int& position) const override;

    virtual void drawLabels();
    virtual void drawTicks();
    virtual void paintLabels (juce::Graphics& graphics);
    virtual void paintTicks (juce::Graphics& graphics);

    float bottomDb = 0.0f;   // where the whole segments begin
    float partDb = 0.0f;     // of a cut-off segment below the whole ones

private:
    void fitSegments (int length);
    Bar getBar();

    std::atomic<bool> geometryDirty { true };   // in order with what has been set
    int fittedLength = -1;                      // pixels; a meter may grow without a word
};
