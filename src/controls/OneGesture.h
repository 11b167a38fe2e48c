// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class OxJuceControl;

/** Moves a control's value as one edit, or within the gesture that is under way [message thread]. A listener may delete or
    lock the control on the way. */
void changeInOneGesture (OxJuceControl& control, float amount);
