// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ModalTextEditorUser.h"
#include "controls/OxJuceControlWithHelpers.h"

/** Shows a text, and lets the user edit it when clicked [message thread, but for `draw`].

    Listeners hear of each edit that ends, even of one that changed nothing. A field that is locked opens too, to be read and
    copied. With a parameter, a field of numbers keeps text and value the same; an edit is no gesture. */
class OxJuceTextEdit : public OxJuceControlWithHelpers, public ModalTextEditorUser
{
public:
    /** What may stand in the field. A sign stands first or not at all; a number may have any count of points. */
    enum class Format
    {
        anyText,
        wholeNumber,   // thousandths of the value
        number         // the value itself
    };

    explicit OxJuceTextEdit (const juce::String& nameOfControl) : OxJuceControlWithHelpers (nameOfControl) {}

    juce::String getText() const { return text; }

    /** Replaces the text, rid of what the format does not allow, and the value of a field of numbers with a parameter. */
    virtual void setText (const juce::String& newText);

    /** Rids the text of what the format and the length do not allow. */
    virtual void sanitiseText();

    // OxJuceControl, OxOglChildComponent, OxOglComponentUser
    void setOglComponent (OxJuceEditorBase* newEditor) override;
    void draw (int elapsedMs) override;
    const char* getTypeName() const override { return "OxJuceTextEdit"; }
    void valueChanged (float newValue) override;

    // juce::Component
    void mouseDown (const juce::MouseEvent& event) override;
    void paint (juce::Graphics& graphics) override;

    // ModalTextEditorUser
    void textEditFinished (const juce::String& newText) override;

    Relaxed<juce::Colour> boxColour = juce::Colour (0xff323232);
    juce::Colour editorBackground { 0xff505050 };
    juce::Colour editorTextColour = juce::Colours::white;
    Format format = Format::anyText;
    int maxLength = 0;   // characters, 0 for any number

private:
    void replaceText (const juce::String& newText);
    float readValue() const;

    juce::String text;         // changed while no frame is drawn
    bool showsValue = false;   // the text follows the value just now, and does not write it
};
