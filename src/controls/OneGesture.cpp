// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OneGesture.h"

#include "controls/OxJuceControl.h"

void changeInOneGesture (OxJuceControl& control, float amount)
{
    const juce::WeakReference<juce::Component> alive (&control);
    const auto isOwn = ! control.isChanging();

    if (isOwn)
        control.beginChange();

    if (alive != nullptr && control.isChanging())
        control.setValue (control.getValue() + amount, true);

    if (alive != nullptr && isOwn)
        control.abortChange();
}
