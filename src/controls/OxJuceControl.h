// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ViewWatch.h"
#include "framework/OxParamRecord.h"
#include "gui/OxOglChildComponent.h"

/** What the mouse can work: a value from 0 to 1 with listeners, alone or in a parameter's place. What all kinds have in
    common stands here too: gestures, locks, the click for the default, the key for fine steps, the host's first say.

    No control has the processor at hand. As one of the listeners the editor carries a value down to the parameter, and it
    brings others up without a word to anybody; with no editor a control works by itself. All on the message thread, but
    what says [render thread] or [any thread]. */
class OxJuceControl : public OxOglChildComponent
{
public:
    /** Hears of a control. It may remove itself, or, once it has taken the control from its parent, delete it, from inside a
        call. */
    class Listener
    {
    public:
        virtual ~Listener() = default;

        virtual void controlValueChanged (OxJuceControl&) {}
        virtual void controlGestureBegin (OxJuceControl&) {}
        virtual void controlGestureEnd (OxJuceControl&) {}
    };

    explicit OxJuceControl (const juce::String& nameOfControl);
    ~OxJuceControl() override;

    /** Binds the control to a parameter and an editor, who listens from here on, and takes the parameter's value and
        default. An editor that it leaves forgets it. An inverted control is marked as such before.
        @param newId   `kNoParam` for no parameter
        @param newOwner null for none */
    void attach (int newId, OxJuceEditorBase* newOwner);

    /** @param listener not owned; null or a second time is ignored */
    void addListener (Listener* listener);
    void removeListener (Listener* listener);

    int getParameterId() const noexcept { return parameterId; }
    float getValue() const noexcept { return value; }                      // [any thread]
    int getCode() const noexcept { return thousandths::toCode (value); }   // the entry, of a control that chooses one
    bool isLocked() const noexcept { return locked; }                      // [any thread]
    bool isChanging() const noexcept { return changing; }

    /** Stores a value, clamped to 0 to 1; the value that stands changes nothing. @param notify tell the listeners */
    virtual void setValue (float newValue, bool notify);

    /** Whether the user can move the control: it is enabled, with all its parents, and not locked. */
    bool takesMouse() const { return ! locked && isEnabled(); }

    /** A gesture, which the host sees as one edit. It ends when the control is locked, disabled or goes out of view. */
    virtual void beginChange();
    virtual void endChange();

    /** Ends the gesture that is under way, if one is. */
    virtual void abortChange();

    /** Called with each new value, before the listeners are. */
    virtual void valueChanged (float) {}

    /** Takes the mouse away, as the toolkit's enablement does, but for the product's own reasons; ends a gesture first. */
    virtual void setLocked (bool shouldBeLocked);
    virtual void lockChanged() {}

    /** Makes the picture anew from what it is made of. */
    virtual void refresh() {}

    /** At which opacity the control draws everything [any thread]. */
    virtual float getOpacity() const;

    // juce::Component
    void enablementChanged() override;
    void mouseEnter (const juce::MouseEvent& event) override;
    void setVisible (bool shouldBeVisible) override;

    Relaxed<bool> inverted = false;   // its 1 is the parameter's 0
    bool showsParameterText = true;   // tells the editor when the pointer comes
    Relaxed<bool> dimsWhenLocked = true;
    Relaxed<float> lockedOpacity = 0.5f, normalOpacity = 1.0f;

protected:
    /** The control went out of view in mid-gesture. */
    virtual void leftView() { abortChange(); }

    // From the last listener to the first; ends with the control.
    virtual void sendValueChanged();
    virtual void sendChangeBegin();
    virtual void sendChangeEnd();

    /** Whether a click means the default: alt on one kind of host, ctrl on the others. */
    bool isResetClick (const juce::MouseEvent& event) const;

    /** On a click for it, the default becomes the value. */
    virtual void resetOnClick (const juce::MouseEvent& event);

    /** What a mouse movement is multiplied by: 0.1 with the key for fine steps down, else 1. */
    virtual float getFineFactor (const juce::MouseEvent& event) const;

    /** Whether the host takes a mouse event on its parameter for itself. Every handler asks first, and stops on true;
        a release ends the gesture even so. */
    virtual bool hostMouseDown (const juce::MouseEvent& event);
    virtual bool hostMouseDrag (const juce::MouseEvent& event);
    virtual bool hostMouseUp (const juce::MouseEvent& event);

private:
    template <typename Notification>
    void notifyListeners (Notification&& notify);

    void leave (OxJuceEditorBase& owner);
    bool isOnProTools() const;
    bool isOfferedToHost() const;

    juce::Array<Listener*> listeners;   // not owned
    int parameterId = kNoParam;
    Relaxed<float> value = 0.0f;
    float defaultValue = 0.0f;
    Relaxed<bool> locked = false;
    bool changing = false;                  // between begin and end of a gesture
    std::unique_ptr<ViewWatch> viewWatch;   // in a gesture
};
