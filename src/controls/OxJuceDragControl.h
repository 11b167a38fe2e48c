// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ModalTextEditorUser.h"
#include "controls/OxJuceControlWithHelpers.h"

/** Follows the distance that the pointer is dragged: a knob, one picture of a strip for each position, or a box that spells
    its parameter out and can be typed into [message thread, but for `draw`].

    Of a slanting drag only the longer part counts, and up is as good as right. Each movement is measured from the one
    before, so a pointer that went too far past an end is answered at once when it turns. */
class OxJuceDragControl : public OxJuceControlWithHelpers, public ModalTextEditorUser
{
public:
    /** Reads what a user has typed. Whatever it gives is held to the range; what is no number changes nothing. */
    using StringToParam = float (*) (const juce::String& text);

    explicit OxJuceDragControl (const juce::String& nameOfControl) : OxJuceControlWithHelpers (nameOfControl) {}

    /** @param count       frames of each image, one under another
        @param isContinuous the value picks among all frames; or else it numbers one, in thousandths */
    void setFrames (int count, bool isContinuous);

    /** A box with the parameter's text instead of a picture. */
    void setTextMode (bool shouldShowText);

    /** @param speed 1 for 200 pixels from end to end */
    virtual void setDragSpeed (float speed) { dragSpeed = speed * kDefaultDragSpeed; }

    /** Whether it shows the picture of one that is held. */
    virtual bool isDraggingLook() const { return isChanging() && getImage (1).isValid(); }

    /** What the type-in begins with. */
    virtual juce::String getEditText() const { return editText; }
    virtual void setConvertStringToParam (StringToParam function) { m_fnpConvertStringToParam = function; }
    virtual float getMaximumValue() const;

    // OxJuceControl: the limits hold what a user does, not what comes silently.
    void setValue (float newValue, bool notify) override;
    void beginChange() override;
    void endChange() override;
    void valueChanged (float) override { refresh(); }
    void refresh() override;

    // OxOglChildComponent, OxOglComponentUser
    void draw (int elapsedMs) override;
    const char* getTypeName() const override { return "OxJuceDragControl"; }
    void setOglComponent (OxJuceEditorBase* newEditor) override;

    // juce::Component
    void paint (juce::Graphics& graphics) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseDrag (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;
    void mouseDoubleClick (const juce::MouseEvent& event) override;
    void mouseWheelMove (const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) override;

    // ModalTextEditorUser
    void textEditFinished (const juce::String& text) override;

    bool wraps = false;   // the range is a ring
    bool draggable = true, typeInDisabled = true;
    bool limited = false;   // to these two
    float limitLow = -100.0f, limitHigh = 100.0f;
    juce::Colour editorBackground { 0xff141414 };
    juce::String editText;
    Relaxed<bool> tinted = false;   // the picture takes the tint
    Relaxed<juce::Colour> tint = juce::Colour();

protected:
    // OxJuceControlWithHelpers: the frame of the value, cut out of that image.
    void selectImage (int index) override;

    // OxJuceControl
    void leftView() override;

private:
    static constexpr float kDefaultDragSpeed = 0.005f;

    int getFrame() const;
    bool isTyping() const { return textEditor.isOpen(); }   // whose gesture a click then leaves alone
    float getStepFactor() const { return continuous ? 1.0f : 0.004f; }
    void updateShownText();
    void drawTextBox();
    void drawPicture();
    juce::Colour getPictureColour() const;
    juce::Colour getDimming() const;

    int frameCount = 1;
    bool continuous = true;
    float dragStartValue = 0.0f;   // at the last step, as the point
    juce::Point<int> dragStartPoint;
    float dragSpeed = kDefaultDragSpeed;   // value per pixel
    StringToParam m_fnpConvertStringToParam = nullptr;
    Relaxed<bool> textMode = false;
    Relaxed<bool> looksHeld = false;   // what `isDraggingLook` last said
    juce::String shownText;            // of the parameter; changed while no frame is drawn
    juce::Image shownStrip;            // from which the picture is cut
    juce::Rectangle<int> shownFrame;   // in it
};
