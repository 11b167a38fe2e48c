// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/MultipliedImage.h"

juce::Image multiplied (const juce::Image& image, juce::Colour colour)
{
    if (image.isNull() || colour == juce::Colours::white)
        return image;

    auto product = image.convertedToFormat (juce::Image::ARGB).createCopy();
    const juce::Image::BitmapData pixels (product, juce::Image::BitmapData::readWrite);

    for (int y = 0; y < pixels.height; ++y)
        for (int x = 0; x < pixels.width; ++x)
        {
            const auto pixel = pixels.getPixelColour (x, y);
            pixels.setPixelColour (x, y,
                                   juce::Colour::fromFloatRGBA (pixel.getFloatRed() * colour.getFloatRed(),
                                                                pixel.getFloatGreen() * colour.getFloatGreen(),
                                                                pixel.getFloatBlue() * colour.getFloatBlue(),
                                                                pixel.getFloatAlpha() * colour.getFloatAlpha()));
        }

    return product;
}
