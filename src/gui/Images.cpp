// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/Images.h"

#include <EmbeddedImages.h>

juce::Image images::loadResource (const juce::String& resourceName)
{
    int size = 0;
    const auto* const data = resources::getNamedResource (resourceName.toRawUTF8(), size);
    return data != nullptr ? juce::ImageCache::getFromMemory (data, size) : juce::Image();
}

juce::Image images::loadImageByName (const juce::String& name)
{
    return loadResource (name + "_png");
}

juce::Rectangle<int> images::frameBounds (const juce::Image& image, int index, int count)
{
    if (count < 1)
        return image.getBounds();

    const auto height = image.getHeight() / count;
    return { 0, height * index, image.getWidth(), height };
}

juce::Image images::frameImage (const juce::Image& image, int index, int count)
{
    return image.getClippedImage (frameBounds (image, index, count));
}
