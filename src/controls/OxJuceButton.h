// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceControlWithHelpers.h"

/** A switch, latching or momentary, that shows a picture or a flat fill, and a label. With nobody listening it serves as a
    label or a panel.

    It is in state 0 (off) or 1 (on); what is kept for states 2 and 3 belongs to the overlays of the two. Whatever takes a
    state takes `kAllStates` for all four, and ignores any other number. */
class OxJuceButton : public OxJuceControlWithHelpers
{
public:
    static constexpr int kNumStates = 4, kAllStates = 4;

    explicit OxJuceButton (const juce::String& nameOfControl);

    /** 1 unless the value is 0 [any thread]. */
    virtual int getState() const { return getValue() != 0.0f ? 1 : 0; }

    /** Makes the button a flat fill of this colour. */
    void setStateFill (juce::Colour colour, int state);

    /** Has the picture drawn in this colour: white stands for it, shades for its shades. */
    virtual void setTintColour (juce::Colour colour, int state);
    void setTextColour (juce::Colour colour, int state);

    /** A button with a picture shows it from here on, one without is a flat fill. */
    void setLabel (const juce::String& text, int state);

    /** A label on a flat fill, whether there is a picture or not. */
    void setSolidLabel (const juce::String& text, int state);

    const juce::String& getLabel (int state) const { return labels[static_cast<std::size_t> (state)]; }

    // OxJuceControl
    void endChange() override;
    void valueChanged (float newValue) override;
    void lockChanged() override;
    void refresh() override;

    // OxOglChildComponent
    void draw (int elapsedMs) override;
    const char* getTypeName() const override { return "OxJuceButton"; }

    // juce::Component
    void paint (juce::Graphics& graphics) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;

    bool momentary = false;         // on from press to release
    Relaxed<bool> solid = false;    // shows its fill, no picture
    Relaxed<bool> tinted = false;   // multiplies the picture by the tint

protected:
    /** The picture in the pending colour, its texture bound [render thread]. */
    virtual void drawPicture();

    /** Its twin. @param isTinted in the tint of the state, or else as it is */
    virtual void paintPicture (juce::Graphics& graphics, bool isTinted);

    /** @param state 0 to 3 [any thread] */
    juce::Colour getTintColour (int state) const { return tintColours[static_cast<std::size_t> (state)]; }

    /** What OpenGL makes of the image on show in a colour, for the twin; none without an image. */
    juce::Image getColouredImage (juce::Colour colour) const;

    /** Does something with each state that a number names. */
    template <typename Action>
    static void forEachState (int state, Action&& action)
    {
        for (int index = 0; index < kNumStates; ++index)
            if (state == index || state == kAllStates)
                action (static_cast<std::size_t> (index));
    }

private:
    using StateColours = std::array<Relaxed<juce::Colour>, kNumStates>;

    void replaceLabel (const juce::String& text, int state, bool isSolid);
    void drawFill (int state);

    StateColours fillColours, tintColours, textColours;
    std::array<juce::String, kNumStates> labels;
};
