// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/ContentWrapper.h"

ContentWrapper::ContentWrapper (juce::AudioProcessorEditor& ownEditor) : editor (ownEditor)
{
    setOpaque (true);
    const juce::ScopedValueSetter<bool> follow (resizing, true);
    editor.setTopLeftPosition (0, 0);
    setBounds (editor.getLocalBounds());
    addAndMakeVisible (editor);
}

ContentWrapper::~ContentWrapper()
{
    juce::PopupMenu::dismissAllActiveMenus();

    if (isOnDesktop())
        removeFromDesktop();

    removeChildComponent (&editor);
    editor.processor.editorBeingDeleted (&editor);
    delete &editor;
}

juce::AudioProcessorEditor* ContentWrapper::makeEditor (juce::AudioProcessor& processor)
{
    return processor.getActiveEditor() == nullptr ? processor.createEditorIfNeeded() : nullptr;
}

bool ContentWrapper::connect()
{
    if (! errorGuard.has_value())
        errorGuard.emplace();

    return errorGuard->isConnected();
}

void ContentWrapper::embed (void* parent)
{
    setVisible (true);
    addToDesktop (0, parent);
}

void ContentWrapper::childBoundsChanged (juce::Component*)
{
    if (resizing)
        return;

    const juce::ScopedValueSetter<bool> follow (resizing, true);
    requestSize (editor.getWidth(), editor.getHeight());
    setSize (editor.getWidth(), editor.getHeight());
}

void ContentWrapper::resized()
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
