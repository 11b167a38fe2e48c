// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/ContentWrapper.h"

#include <functional>

/** The content of the host's window [message thread]. */
class EditorCompWrapper : public ContentWrapper
{
public:
    using SizeRequest = std::function<void (int width, int height)>;

    EditorCompWrapper (juce::AudioProcessorEditor& ownEditor, SizeRequest request);

    // juce::Component: also of clicks on the children
    void mouseDown (const juce::MouseEvent& event) override;

private:
    void requestSize (int width, int height) override { askHost (width, height); }

    const SizeRequest askHost;
};
