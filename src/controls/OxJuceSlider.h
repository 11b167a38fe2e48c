// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceControlWithHelpers.h"
#include "platform/AnimationClock.h"

#include <optional>

/** Puts the value where the pointer is on a track [message thread, but for `draw`].

    Image 0 is the thumb; without it the slider works with a thumb of no size. With the key for fine steps down, the thumb
    goes a tenth as far as the pointer, from where the press began. */
class OxJuceSlider : public OxJuceControlWithHelpers
{
public:
    enum class Orientation : int
    {
        horizontal = 0,
        vertical = 1,
        none = 2   // no track, no travel
    };

    explicit OxJuceSlider (const juce::String& nameOfControl);

    /** Places the travel: the control is longer by half a thumb at each end. All bounds are the parent's.
        @param chooseOrientation takes the longer side, or for a square the height, as the slider's length */
    virtual void setTrackBounds (int x, int y, int width, int height, bool chooseOrientation);
    virtual void setTrackBounds (juce::Rectangle<int> travel, bool chooseOrientation);

    /** Places the control: the travel is shorter by half a thumb at each end, so that the thumb never leaves it. */
    virtual void setControlBounds (int x, int y, int width, int height);
    virtual void setControlBounds (juce::Rectangle<int> bounds);

    /** Takes the value from the pointer's place, and the default if the click asks for it. */
    virtual void setValueFromMouse (const juce::MouseEvent& event);

    // OxJuceControl, OxOglChildComponent
    void refresh() override { selectImage (0); }
    void draw (int elapsedMs) override;
    const char* getTypeName() const override { return "OxJuceSlider"; }

    // juce::Component
    void paint (juce::Graphics& graphics) override;
    void mouseEnter (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseDrag (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;
    void mouseWheelMove (const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) override;

    Relaxed<Orientation> orientation = Orientation::vertical;   // set before the bounds
    Relaxed<bool> bipolar = false;                              // its bar begins half way
    Relaxed<juce::Colour> trackColour = juce::Colour(), barColour = juce::Colour();
    Relaxed<juce::Colour> trackColourAtOne = juce::Colour(),
                          barColourAtOne = juce::Colour();   // transparent for no change
    Relaxed<juce::Colour> thumbColour = juce::Colours::white, thumbHoverColour = juce::Colours::white;
    Relaxed<bool> thumbFadesColour = false;                         // between these two, rather than in opacity
    Relaxed<float> thumbBrightAlpha = 1.0f, thumbDimAlpha = 0.8f;   // under the pointer, and away from it
    Relaxed<juce::Point<int>> thumbOffset = juce::Point<int>();     // moves the picture alone
    int otherParameterId = kNoParam;                                // stood in for by a slider that has none

protected:
    // OxJuceControl: also of a parameter that it stands in for.
    void resetOnClick (const juce::MouseEvent& event) override;

    /** How far the thumb is lit, 0 to 1: in full under the pointer and for 50 ms after, then less and less for 200 ms
        [render thread]. */
    float stepThumbFade (double moment);

private:
    struct Picture;

    Picture getPicture (juce::Rectangle<int> bounds, juce::Rectangle<int> thumb, float light) const;
    juce::Rectangle<int> getBar (juce::Rectangle<int> track, juce::Rectangle<int> thumb, float level) const;
    juce::Rectangle<int> getThumbSize() const { return texture.getImage().getBounds(); }
    juce::Point<int> getHalfThumb() const;   // along the slider
    std::optional<float> getValueAt (const juce::MouseEvent& event) const;
    bool actsForOther() const { return getParameterId() == kNoParam && otherParameterId != kNoParam; }

    AnimationClock fadeClock;
    double litTime = -AnimationClock::kLongestStep;   // the last in full light, of `fadeClock` [render thread]
    Relaxed<float> thumbLight = 0.0f;                 // as drawn last
    Relaxed<bool> hovered = false;
    juce::Point<int> dragOrigin;        // the pointer at the press
    juce::Rectangle<int> trackBounds;   // in the parent; changed while no frame is drawn
};
