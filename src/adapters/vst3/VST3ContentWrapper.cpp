// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst3/VST3ContentWrapper.h"

#include "adapters/vst3/VST3Editor.h"

namespace Steinberg
{
namespace Vst
{

VST3ContentWrapper::VST3ContentWrapper (VST3Editor& ownView, juce::AudioProcessorEditor& ownEditor) :
    view (ownView), editor (ownEditor)
{
    setOpaque (true);
    const juce::ScopedValueSetter<bool> follow (resizing, true);
    editor.setTopLeftPosition (0, 0);
    setBounds (editor.getLocalBounds());
    addAndMakeVisible (editor);
}

VST3ContentWrapper::~VST3ContentWrapper()
{
    removeChildComponent (&editor);
    editor.processor.editorBeingDeleted (&editor);
    delete &editor;
}

void VST3ContentWrapper::childBoundsChanged (juce::Component*)
{
    if (resizing)
        return;

    const juce::ScopedValueSetter<bool> follow (resizing, true);
    view.requestSize (editor.getWidth(), editor.getHeight());
    setSize (editor.getWidth(), editor.getHeight());
}

void VST3ContentWrapper::resized()
{
    if (resizing)
        return;

    {
        const juce::ScopedValueSetter<bool> follow (resizing, true);
        editor.setBounds (getLocalBounds());
    }

    // An editor may keep to a size of its own: then the host follows.
    if (editor.getLocalBounds() != getLocalBounds())
        childBoundsChanged (&editor);
}

}   // namespace Vst
}   // namespace Steinberg
