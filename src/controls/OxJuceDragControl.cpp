// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceDragControl.h"

#include "controls/OneGesture.h"
#include "gui/OxJuceOglFont.h"

#include <cmath>

namespace
{

constexpr float kWheelScale = 30.0f;        // pixels of a drag that one unit of the wheel stands for
constexpr float kPlainEditHeight = 11.0f;   // pixels, of what is typed where no font is set
constexpr int kEditHeightBeyondFont = 2;

}   // namespace

// Value ---------------------------------------------------------------------------------------------------------------

float OxJuceDragControl::getMaximumValue() const
{
    return continuous ? 1.0f : thousandths::fromCode (std::max (0, frameCount - 1));
}

void OxJuceDragControl::setValue (float newValue, bool notify)
{
    if (std::isnan (newValue))
        return;

    if (limited && notify)
        newValue = std::max (limitLow, std::min (limitHigh, newValue));

    const auto max = getMaximumValue();

    if (newValue > max)
        newValue = wraps ? 0.0f : max;
    else if (wraps && newValue < 0.0f)
        newValue = max;

    const juce::WeakReference<juce::Component> self (this);
    OxJuceControlWithHelpers::setValue (newValue, notify);

    if (self != nullptr)
        updateShownText();
}

void OxJuceDragControl::beginChange()
{
    const juce::WeakReference<juce::Component> self (this);
    OxJuceControlWithHelpers::beginChange();

    if (self != nullptr)
        refresh();
}

void OxJuceDragControl::endChange()
{
    const juce::WeakReference<juce::Component> self (this);
    setMouseCursor (juce::MouseCursor::NormalCursor);   // whatever ends the drag, a lock too
    OxJuceControlWithHelpers::endChange();

    if (self != nullptr)
        refresh();
}

void OxJuceDragControl::leftView()
{
    if (! isTyping())   // which then ends too, and the gesture with it
        OxJuceControlWithHelpers::leftView();
}

// Dragging ------------------------------------------------------------------------------------------------------------

void OxJuceDragControl::mouseDown (const juce::MouseEvent& event)
{
    if (hostMouseDown (event) || ! takesMouse() || isTyping())
        return;

    const juce::WeakReference<juce::Component> self (this);
    beginChange();

    if (self != nullptr && isChanging())
        resetOnClick (event);

    if (self == nullptr || ! isChanging())
        return;

    dragStartValue = getValue();
    dragStartPoint = event.getPosition();

    if (draggable)
        setMouseCursor (juce::MouseCursor::UpDownResizeCursor);
}

void OxJuceDragControl::mouseDrag (const juce::MouseEvent& event)
{
    // The rest of a press whose gesture was closed moves nothing.
    if (hostMouseDrag (event) || ! draggable || isResetClick (event) || ! isChanging() || isTyping())
        return;

    const auto moved = event.getPosition() - dragStartPoint;
    const auto pixels = std::abs (moved.y) > std::abs (moved.x) ? -moved.y : moved.x;
    const juce::WeakReference<juce::Component> self (this);
    setValue (dragStartValue + getFineFactor (event) * static_cast<float> (pixels) * dragSpeed * getStepFactor(), true);

    if (self == nullptr)
        return;

    dragStartValue = getValue();
    dragStartPoint = event.getPosition();
}

void OxJuceDragControl::mouseUp (const juce::MouseEvent& event)
{
    hostMouseUp (event);

    if (! isTyping())
        abortChange();
}

void OxJuceDragControl::mouseWheelMove (const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel)
{
    if (hostMouseDrag (event) || ! takesMouse() || ! draggable || isResetClick (event))
        return;

    const auto pixels = (wheel.deltaX + wheel.deltaY) * kWheelScale;
    const juce::WeakReference<juce::Component> self (this);
    changeInOneGesture (*this, pixels * dragSpeed * getFineFactor (event) * getStepFactor());

    if (self != nullptr)
        dragStartValue = getValue();   // of a drag that is under way
}

// Typing --------------------------------------------------------------------------------------------------------------

void OxJuceDragControl::mouseDoubleClick (const juce::MouseEvent& event)
{
    if (hostMouseDown (event) || ! takesMouse() || typeInDisabled || isTyping())
        return;

    if (m_fnpConvertStringToParam == nullptr)
    {
        juce::Logger::writeToLog ("OxJuceDragControl::mouseDoubleClick warning: ignored as m_fnpConvertStringToParam "
                                  "not set for " +
                                  getName());
        return;
    }

    const auto* const sheet = getFont();
    const auto height =
        sheet != nullptr ? static_cast<float> (sheet->getHeight() + kEditHeightBeyondFont) : kPlainEditHeight;
    const auto box = getScreenBounds().reduced (showsBackground ? 1 : 0);
    textEditor.setLook (box, getTextColour(), editorBackground, height);

    const juce::WeakReference<juce::Component> self (this);
    beginChange();

    if (self != nullptr && isChanging())
        startEdit (false, getEditText());
}

void OxJuceDragControl::textEditFinished (const juce::String& text)
{
    const juce::WeakReference<juce::Component> self (this);
    const auto isWanted = m_fnpConvertStringToParam != nullptr && text.isNotEmpty();

    if (isWanted && ! isChanging())   // a lock has closed the gesture meanwhile
        beginChange();

    if (self != nullptr && isWanted)
        setValue (m_fnpConvertStringToParam (text), true);

    if (self != nullptr)
        abortChange();
}
