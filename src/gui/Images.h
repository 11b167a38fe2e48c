// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

/** Images embedded in the program, and strips of frames stacked in one of them [any thread]. */
namespace images
{

/** @param resourceName in full, like "ButtonMid_png"
    @returns the decoded image, which all who ask share; none if there is no such resource. */
juce::Image loadResource (const juce::String& resourceName);

/** @param name without its suffix, like "ButtonMid" */
juce::Image loadImageByName (const juce::String& name);

/** The place of one frame in a strip of `count` frames; the whole image for a count below 1, nothing without an image. */
juce::Rectangle<int> frameBounds (const juce::Image& image, int index, int count);
juce::Image frameImage (const juce::Image& image, int index, int count);

}   // namespace images
