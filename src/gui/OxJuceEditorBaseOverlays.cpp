// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxJuceEditorBase.h"

void OxJuceEditorBase::drawOverlays()
{
    drawProductOverlay();
}
