// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

/** What OpenGL makes of an image in a colour: their product, channel by channel. White gives the image itself. */
juce::Image multiplied (const juce::Image& image, juce::Colour colour);
