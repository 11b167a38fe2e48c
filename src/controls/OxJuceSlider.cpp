// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceSlider.h"

#include "controls/OneGesture.h"
#include "gui/OxJuceEditorBase.h"

namespace
{

constexpr float kWheelScale = 35.0f;   // pixels of travel for one unit of the wheel

}   // namespace

OxJuceSlider::OxJuceSlider (const juce::String& nameOfControl) : OxJuceControlWithHelpers (nameOfControl)
{
    setPaintingIsUnclipped (true);
}

// Bounds --------------------------------------------------------------------------------------------------------------

void OxJuceSlider::setTrackBounds (int x, int y, int width, int height, bool chooseOrientation)
{
    setTrackBounds ({ x, y, width, height }, chooseOrientation);
}

void OxJuceSlider::setTrackBounds (juce::Rectangle<int> travel, bool chooseOrientation)
{
    if (chooseOrientation)
        orientation = travel.getWidth() <= travel.getHeight() ? Orientation::vertical : Orientation::horizontal;

    const auto half = getHalfThumb();
    setControlBounds (travel.expanded (half.x, half.y));
}

void OxJuceSlider::setControlBounds (int x, int y, int width, int height)
{
    setControlBounds ({ x, y, width, height });
}

void OxJuceSlider::setControlBounds (juce::Rectangle<int> bounds)
{
    const auto half = getHalfThumb();
    {
        const ScopedChange change (*this);
        trackBounds = orientation == Orientation::none ? juce::Rectangle<int>() : bounds.reduced (half.x, half.y);
    }
    setBounds (bounds);
}

juce::Point<int> OxJuceSlider::getHalfThumb() const
{
    const auto thumb = getThumbSize();

    switch (orientation.get())
    {
        case Orientation::horizontal:
            return { thumb.getWidth() / 2, 0 };
        case Orientation::vertical:
            return { 0, thumb.getHeight() / 2 };
        case Orientation::none:
            break;
    }

    return {};
}

// Value ---------------------------------------------------------------------------------------------------------------

void OxJuceSlider::setValueFromMouse (const juce::MouseEvent& event)
{
    const juce::WeakReference<juce::Component> self (this);
    const auto wasChanging = isChanging();

    if (const auto wanted = getValueAt (event))
        setValue (*wanted, true);

    if (self == nullptr || (wasChanging && ! isChanging()))
        return;

    actsForOther() ? resetOnClick (event) : OxJuceControl::resetOnClick (event);
}

std::optional<float> OxJuceSlider::getValueAt (const juce::MouseEvent& event) const
{
    const auto half = getHalfThumb();
    const auto share = [fine = getFineFactor (event)] (int pointer, int origin, int halfThumb, int travel)
    {
        const auto position = static_cast<float> (pointer - origin) * fine + static_cast<float> (origin);
        return (position - static_cast<float> (halfThumb)) / static_cast<float> (travel);
    };

    if (orientation == Orientation::horizontal && trackBounds.getWidth() > 0)
        return share (event.x, dragOrigin.x, half.x, trackBounds.getWidth());

    if (orientation == Orientation::vertical && trackBounds.getHeight() > 0)
        return 1.0f - share (event.y, dragOrigin.y, half.y, trackBounds.getHeight());

    return {};
}

void OxJuceSlider::resetOnClick (const juce::MouseEvent& event)
{
    if (auto* const owner = editor.get(); owner != nullptr && isResetClick (event))
        setValue (owner->getOwner().parameter (otherParameterId).defaultValue, true);
}

// Mouse ---------------------------------------------------------------------------------------------------------------

void OxJuceSlider::mouseEnter (const juce::MouseEvent& event)
{
    OxJuceControlWithHelpers::mouseEnter (event);
    hovered = isEnabled();

    if (auto* const owner = editor.get(); owner != nullptr && showsParameterText && isEnabled() && actsForOther())
        owner->showTextOfParameter (otherParameterId);
}

void OxJuceSlider::mouseExit (const juce::MouseEvent& event)
{
    OxJuceControlWithHelpers::mouseExit (event);
    hovered = false;
}

void OxJuceSlider::mouseDown (const juce::MouseEvent& event)
{
    if (hostMouseDown (event) || ! takesMouse())
        return;

    const juce::WeakReference<juce::Component> self (this);
    beginChange();

    if (self == nullptr || ! isChanging())
        return;

    dragOrigin = event.getPosition();
    setValueFromMouse (event);
}

void OxJuceSlider::mouseDrag (const juce::MouseEvent& event)
{
    // The rest of a press whose gesture was closed moves nothing.
    if (! hostMouseDrag (event) && isChanging())
        setValueFromMouse (event);
}

void OxJuceSlider::mouseUp (const juce::MouseEvent& event)
{
    hostMouseUp (event);
    abortChange();
}

void OxJuceSlider::mouseWheelMove (const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel)
{
    if (hostMouseDown (event) || ! takesMouse())
        return;

    const auto isHorizontal = orientation == Orientation::horizontal;
    const auto travel = isHorizontal ? trackBounds.getWidth() : trackBounds.getHeight();
    const auto pixels = (isHorizontal ? wheel.deltaX : wheel.deltaY) * getFineFactor (event) * kWheelScale;
    changeInOneGesture (*this, travel > 0 ? pixels / static_cast<float> (travel) : 0.0f);
}
