// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst2/EditorCompWrapper.h"

#include "framework/HostType.h"

EditorCompWrapper::EditorCompWrapper (juce::AudioProcessorEditor& ownEditor, SizeRequest request) :
    ContentWrapper (ownEditor), askHost (std::move (request))
{
    // This host brings its windows to the front by itself.
    if (getHostType() != hostType::rmHost)
        addMouseListener (this, true);
}

void EditorCompWrapper::mouseDown (const juce::MouseEvent&)
{
    if (! isCurrentlyBlockedByAnotherModalComponent())
        toFront (true);
}
