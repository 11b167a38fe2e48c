// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/MessageThread.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace Steinberg
{
namespace Vst
{

class VST3Editor;

/** The component that stands in the host's window and holds the editor; the two keep one size [message thread]. */
class VST3ContentWrapper : public juce::Component
{
public:
    /** Takes the editor over: it goes with the wrapper. */
    VST3ContentWrapper (VST3Editor& ownView, juce::AudioProcessorEditor& ownEditor);
    ~VST3ContentWrapper() override;

    juce::AudioProcessorEditor& getEditor() const noexcept { return editor; }

    // juce::Component
    void paint (juce::Graphics& graphics) override { graphics.fillAll (juce::Colours::black); }
    void childBoundsChanged (juce::Component* child) override;
    void resized() override;

private:
    const MessageThread::User toolkit;
    VST3Editor& view;
    juce::AudioProcessorEditor& editor;
    bool resizing = false;   // one of the two follows the other
};

}   // namespace Vst
}   // namespace Steinberg
