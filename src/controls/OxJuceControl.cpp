// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceControl.h"

#include "framework/HostType.h"
#include "gui/OxJuceEditorBase.h"

namespace
{

constexpr float kFineFactor = 0.1f;

float inUnitRange (float value)
{
    return juce::jlimit (0.0f, 1.0f, value);
}

}   // namespace

OxJuceControl::OxJuceControl (const juce::String& nameOfControl) : OxOglChildComponent (nameOfControl)
{
    setWantsKeyboardFocus (false);
    setRepaintsOnMouseActivity (true);
}

OxJuceControl::~OxJuceControl()
{
    if (parameterId != kNoParam && editor != nullptr)
        attach (kNoParam, editor);
}

void OxJuceControl::attach (int newId, OxJuceEditorBase* newOwner)
{
    if (auto* const previous = editor.get(); previous != nullptr && previous != newOwner)
        leave (*previous);

    parameterId = newId;
    setOglComponent (newOwner);

    if (newOwner == nullptr)
        return;

    addListener (newOwner);
    newOwner->bindControl (*this);

    if (newId == kNoParam)
        return;

    const auto& record = newOwner->getOwner().parameter (newId);
    const auto shown = [this] (float stored) { return inverted ? 1.0f - stored : stored; };
    setValue (shown (record.value), false);
    defaultValue = inUnitRange (shown (record.defaultValue));
}

void OxJuceControl::leave (OxJuceEditorBase& owner)
{
    removeListener (&owner);

    if (std::exchange (parameterId, kNoParam) != kNoParam)
        owner.bindControl (*this);
}

// Listeners -----------------------------------------------------------------------------------------------------------

void OxJuceControl::addListener (Listener* listener)
{
    if (listener != nullptr)
        listeners.addIfNotAlreadyThere (listener);
}

void OxJuceControl::removeListener (Listener* listener)
{
    listeners.removeFirstMatchingValue (listener);
}

template <typename Notification>
void OxJuceControl::notifyListeners (Notification&& notify)
{
    const juce::WeakReference<juce::Component> self (this);

    for (int index = listeners.size(); --index >= 0;)
    {
        index = std::min (index, listeners.size() - 1);

        if (index < 0)
            return;

        notify (*listeners.getUnchecked (index));

        if (self == nullptr)
            return;
    }
}

void OxJuceControl::sendValueChanged()
{
    notifyListeners ([this] (Listener& listener) { listener.controlValueChanged (*this); });
}

void OxJuceControl::sendChangeBegin()
{
    notifyListeners ([this] (Listener& listener) { listener.controlGestureBegin (*this); });
}

void OxJuceControl::sendChangeEnd()
{
    notifyListeners ([this] (Listener& listener) { listener.controlGestureEnd (*this); });
}

// Value and gesture ---------------------------------------------------------------------------------------------------

void OxJuceControl::setValue (float newValue, bool notify)
{
    const auto clamped = inUnitRange (newValue);

    if (clamped == value || std::isnan (newValue))
        return;

    const juce::WeakReference<juce::Component> self (this);
    value = clamped;
    valueChanged (clamped);

    if (notify)
        sendValueChanged();

    if (self != nullptr)
        repaint();
}

void OxJuceControl::beginChange()
{
    changing = true;
    viewWatch = std::make_unique<ViewWatch> (*this, [this] { leftView(); });
    sendChangeBegin();
}

void OxJuceControl::endChange()
{
    changing = false;
    viewWatch.reset();
    sendChangeEnd();
}

void OxJuceControl::abortChange()
{
    if (changing)
        endChange();
}

void OxJuceControl::setLocked (bool shouldBeLocked)
{
    if (shouldBeLocked == locked)
        return;

    const juce::WeakReference<juce::Component> self (this);
    abortChange();

    if (self == nullptr)
        return;

    locked = shouldBeLocked;
    lockChanged();

    if (self != nullptr)
        repaint();
}

float OxJuceControl::getOpacity() const
{
    const auto dims = (locked && dimsWhenLocked) || ! isDrawnEnabled();
    return dims ? lockedOpacity : normalOpacity;
}

void OxJuceControl::enablementChanged()
{
    OxOglChildComponent::enablementChanged();

    if (! isEnabled())
        abortChange();
}

void OxJuceControl::setVisible (bool shouldBeVisible)
{
    if (shouldBeVisible == isVisible())
        return;

    const juce::WeakReference<juce::Component> self (this);
    juce::Component::setVisible (shouldBeVisible);

    if (self != nullptr)
        refresh();
}

// Mouse ---------------------------------------------------------------------------------------------------------------

void OxJuceControl::mouseEnter (const juce::MouseEvent&)
{
    if (auto* const owner = editor.get(); owner != nullptr && showsParameterText && isEnabled())
        owner->showTextOfParameter (parameterId);
}

bool OxJuceControl::isOnProTools() const
{
    return editor != nullptr && isProTools();
}

bool OxJuceControl::isResetClick (const juce::MouseEvent& event) const
{
    return isOnProTools() ? event.mods.isAltDown() : event.mods.isCtrlDown();
}

void OxJuceControl::resetOnClick (const juce::MouseEvent& event)
{
    if (isResetClick (event))
        setValue (defaultValue, true);
}

float OxJuceControl::getFineFactor (const juce::MouseEvent& event) const
{
    const auto isFine = isOnProTools() ? event.mods.isCtrlDown() : event.mods.isShiftDown();
    return isFine ? kFineFactor : 1.0f;
}

bool OxJuceControl::isOfferedToHost() const
{
    return editor != nullptr && parameterId >= 0 && parameterId != kNoParam &&
           parameterId < editor.get()->getOwner().getNumParameters();
}

bool OxJuceControl::hostMouseDown (const juce::MouseEvent& event)
{
    return isEnabled() && isOfferedToHost() && editor.get()->hostMouseDown (event, parameterId);
}

bool OxJuceControl::hostMouseDrag (const juce::MouseEvent& event)
{
    return isEnabled() && isOfferedToHost() && editor.get()->hostMouseDrag (event, parameterId);
}

bool OxJuceControl::hostMouseUp (const juce::MouseEvent& event)
{
    return isOfferedToHost() && editor.get()->hostMouseUp (event, parameterId);
}
