// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceTextEdit.h"

#include "gui/OxJuceEditorBase.h"

namespace
{

constexpr int kIndent = 1;   // pixels
constexpr double kThousand = 1000.0;

}   // namespace

// The text ------------------------------------------------------------------------------------------------------------

void OxJuceTextEdit::setText (const juce::String& newText)
{
    replaceText (newText);
    sanitiseText();

    if (format == Format::anyText || getParameterId() == kNoParam || showsValue)
        return;

    const juce::WeakReference<juce::Component> self (this);
    setValue (readValue(), true);

    if (self != nullptr)
        valueChanged (getValue());   // where it stood already, the text goes back to it
}

void OxJuceTextEdit::setOglComponent (OxJuceEditorBase* newEditor)
{
    OxJuceControlWithHelpers::setOglComponent (newEditor);

    if (getParameterId() != kNoParam)
        valueChanged (getValue());
}

void OxJuceTextEdit::replaceText (const juce::String& newText)
{
    if (newText == text)
        return;

    {
        const ScopedChange change (*this);
        text = newText;
    }
    repaint();
}

void OxJuceTextEdit::sanitiseText()
{
    auto allowed = text;

    if (format != Format::anyText)
    {
        const auto* const sign = text.startsWithChar ('-') ? "-" : "";
        allowed = sign + text.retainCharacters (format == Format::number ? "0123456789." : "0123456789");
    }

    if (maxLength > 0)
        allowed = allowed.substring (0, maxLength);

    replaceText (allowed);
}

float OxJuceTextEdit::readValue() const
{
    const auto number = text.getDoubleValue() / (format == Format::wholeNumber ? kThousand : 1.0);
    return static_cast<float> (juce::jlimit (0.0, 1.0, number));
}

void OxJuceTextEdit::valueChanged (float newValue)
{
    if (format == Format::anyText)
        return;

    const juce::ScopedValueSetter<bool> following (showsValue, true);
    setText (format == Format::wholeNumber ? juce::String (thousandths::toCode (newValue)) : juce::String (newValue));
}

// The edit ------------------------------------------------------------------------------------------------------------

void OxJuceTextEdit::mouseDown (const juce::MouseEvent& event)
{
    if (hostMouseDown (event) || ! isEnabled())
        return;

    const auto* const sheet = getFont();
    textEditor.setIndents (kIndent, kIndent);
    textEditor.setLook (getScreenBounds(), editorTextColour, editorBackground,
                        static_cast<float> (sheet != nullptr ? sheet->getHeight() : 0));
    startEdit (isLocked(), text);
}

void OxJuceTextEdit::textEditFinished (const juce::String& newText)
{
    const juce::WeakReference<juce::Component> self (this);

    if (newText != text)   // what is shown may be rounded, and is not to be written back
        setText (newText);

    if (self != nullptr)
        sendValueChanged();
}

// The picture ---------------------------------------------------------------------------------------------------------

void OxJuceTextEdit::draw (int)
{
    auto* const target = surface.get();
    const auto area = getDrawnLocalBounds();

    if (target == nullptr || area.isEmpty())
        return;

    target->glState.pending.texturing = false;
    target->glState.pending.colour = boxColour;
    drawFilledRect (area);
    drawLabel (text, nullptr);
    drawBackground();
}

void OxJuceTextEdit::paint (juce::Graphics& graphics)
{
    graphics.setColour (boxColour);
    graphics.fillRect (getLocalBounds());
    paintLabel (graphics, text, nullptr);

    if (showsBackground)
    {
        graphics.setColour (backgroundColour.get().withAlpha (getOpacity()));
        graphics.fillRect (getLocalBounds());
    }
}
