// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/MessageThread.h"
#include "platform/EmbeddedWindow.h"

#include <optional>

#include <juce_audio_processors/juce_audio_processors.h>

/** The component that stands in the host's window and holds the editor; the two keep one size [message thread]. */
class ContentWrapper : public juce::Component
{
public:
    /** Takes the editor over: it goes with the wrapper. */
    explicit ContentWrapper (juce::AudioProcessorEditor& ownEditor);
    ~ContentWrapper() override;

    /** @returns the editor for a new wrapper, or null while another one has it. */
    static juce::AudioProcessorEditor* makeEditor (juce::AudioProcessor& processor);

    /** Reaches the window system, whose errors end no process from now on. @returns false if there is none. */
    bool connect();

    /** Opens the window, which `connect` has reached, in the host's. */
    void embed (void* parent);

    juce::AudioProcessorEditor& getEditor() const noexcept { return editor; }

    // juce::Component
    void paint (juce::Graphics& graphics) override { graphics.fillAll (juce::Colours::black); }
    void childBoundsChanged (juce::Component* child) override;
    void resized() override;

private:
    /** Asks the host for room for a content of this size. */
    virtual void requestSize (int width, int height) = 0;

    const MessageThread::User toolkit;
    std::optional<platform::ScopedWindowErrorGuard> errorGuard;
    juce::AudioProcessorEditor& editor;
    bool resizing = false;   // one of the two follows the other
};
