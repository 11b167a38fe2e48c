// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceControl.h"
#include "gui/OxJuceOglFontUser.h"
#include "gui/OxOglComponentTexture.h"

#include <array>

/** The looks that most controls share: images, a background, a label in a bitmap font, and an overlay that comes up under
    the pointer.

    Images 0 and 1 show off and on; 2 and 3 are laid over them. */
class OxJuceControlWithHelpers : public OxJuceControl, public OxJuceOglFontUser
{
public:
    static constexpr int kNumImages = 4;

    explicit OxJuceControlWithHelpers (const juce::String& nameOfControl);

    /** @param index 0 to 3; any other does nothing */
    virtual void setImage (const juce::Image& image, int index);
    const juce::Image& getImage (int index) const { return images[static_cast<std::size_t> (index)]; }

    virtual void setFillColour (juce::Colour colour) { fillColour = colour; }

    /** Fades the overlay in and out again, once, by these steps a frame. */
    void startOneShotFade (float inStep, float outStep);

    // juce::Component
    void mouseEnter (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;

    Relaxed<bool> showsBackground = false;
    bool hoverFadeDisabled = false;     // the pointer starts no fade
    Relaxed<bool> insetLabel = false;   // the label keeps 10 pixels from the sides and 2 from the top
    Relaxed<juce::Colour> backgroundColour = juce::Colour (128, 128, 128);
    juce::Rectangle<int> helperBounds;       // where the overlay is drawn; set before rendering
    juce::Point<int> labelOffset { 0, 1 };   // moves every label; set before rendering

protected:
    // [render thread] -------------------------------------------------------------------------------------------------

    /** Moves the fade on by a frame. */
    void stepFade();

    /** Steps the fade and draws the overlay. @param first that of the off state */
    virtual void drawHelper (bool first);

    /** Fills the bounds over what is there, if the control shows a background. */
    void drawBackground();

    /** @param text null colour: the font user's */
    virtual void drawLabel (const juce::String& text, const juce::Colour* colour);

    // Their twins in the toolkit's own painting -----------------------------------------------------------------------

    virtual void paintHelper (bool, juce::Graphics&) {}
    virtual void paintLabel (juce::Graphics& graphics, const juce::String& text, const juce::Colour* colour);

    /** Takes one of the images as what is drawn; the first stands in for one that is missing. */
    virtual void selectImage (int index);
    virtual void selectHelperImages (int index);

    juce::Rectangle<int> getLabelBounds (juce::Rectangle<int> local) const;
    juce::Colour getLabelColour (const juce::Colour* colour) const;
    float getFadeLevel() const noexcept { return fadeLevel; }

    OxOglComponentTexture texture;
    Relaxed<juce::Colour> fillColour = juce::Colour();

private:
    static constexpr float kDefaultFadeStep = 0.1f;   // a frame

    OxOglComponentTexture helperTextureOff, helperTextureOn;
    std::array<juce::Image, kNumImages> images;   // by state
    Relaxed<bool> oneShotFade = false;
    Relaxed<bool> fadeTarget = false;   // the overlay fades in, or else out
    Relaxed<float> fadeLevel = 0.0f;    // 0 to 1
    Relaxed<float> fadeInStep = kDefaultFadeStep, fadeOutStep = kDefaultFadeStep;
    Relaxed<float> defaultFadeInStep = kDefaultFadeStep, defaultFadeOutStep = kDefaultFadeStep;   // after one fade
};
