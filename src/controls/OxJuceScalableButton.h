// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceButton.h"
#include "metering/OxJuceMultiGradientHelper.h"

/** A button whose small picture stretches to any size: the corners keep their pixels, edges and middle grow. It takes a tint
    or a vertical gradient for each state; its overlay is the same picture again, in the looks of state 2 or 3.

    Gradient and tint of all four states are given together: a state without a gradient, among others that have one, is
    invisible. */
class OxJuceScalableButton : public OxJuceButton
{
public:
    /** @param resourceName of the picture, without its suffix
        @param cornerSize   pixels that stay unscaled at each edge; 0 for 4 */
    OxJuceScalableButton (const juce::String& nameOfControl, const juce::String& resourceName, int cornerSize);

    /** Takes another picture, or changes nothing without one. @param cornerW, cornerH pixels; 0 leaves what stands */
    void setStripImage (const juce::Image& image, int cornerW, int cornerH);

    /** Adds the stops, from the top of the button to its bottom, to a state's gradient. */
    void setGradient (const std::vector<OxJuceMultiGradientHelper::Stop>& stops, int state);

    virtual const char* getKindName() const { return "ResizableButton"; }

    // OxOglChildComponent
    const char* getTypeName() const override { return "OxJuceScalableButton"; }

    // juce::Component
    void resized() override;

    Relaxed<bool> drawsOversizeLabel = false;   // even a label that is larger than the button

protected:
    // OxJuceButton and its bases
    void drawPicture() override;
    void drawHelper (bool first) override;
    void drawLabel (const juce::String& text, const juce::Colour* colour) override;
    void paintPicture (juce::Graphics& graphics, bool isTinted) override;

private:
    /** A row at which a band ends and the next one begins. */
    struct Row
    {
        float position;        // of the height, 0 to 1
        juce::Colour colour;   // of the gradient there
    };

    using Rows = std::vector<Row>;

    /** The stretch between two rows. */
    struct Band
    {
        int top, bottom;        // pixels of the control
        std::size_t firstCut;   // where the part of the picture that it shows begins, among the four cuts across it
    };

    static Band getBand (const Rows& rows, std::size_t index, int height);
    void drawNineSlice (int state, float alpha);
    void updateTextureEdges();
    void updateRows (std::size_t state);

    std::array<OxJuceMultiGradientHelper, kNumStates> gradients;

    // Read by the render thread, replaced between two frames.
    int cornerWidth = 4, cornerHeight = 4;                                                    // pixels
    float textureLeft = 0.0f, textureRight = 1.0f, textureTop = 0.0f, textureBottom = 1.0f;   // where the corners end
    bool hasGradients = false;
    std::array<Rows, kNumStates> bandRows;   // ascending; none until the button has a size
};
