// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** How far two pictures are apart: the largest difference of a channel, and how many pixels differ at all. Those are
    marked in a third, if there is one. */
struct Difference
{
    int largest = 0, numPixels = 0;
};

inline Difference difference (const juce::Image& first, const juce::Image& second, juce::Image marked = {})
{
    Difference found;

    for (int y = 0; y < first.getHeight(); ++y)
        for (int x = 0; x < first.getWidth(); ++x)
        {
            const auto a = first.getPixelAt (x, y), b = second.getPixelAt (x, y);
            const auto apart = std::max ({ std::abs (a.getRed() - b.getRed()), std::abs (a.getGreen() - b.getGreen()),
                                           std::abs (a.getBlue() - b.getBlue()) });
            found.largest = std::max (found.largest, apart);
            found.numPixels += apart > 0;

            if (apart > 0)
                marked.setPixelAt (x, y, juce::Colours::red);
        }

    return found;
}

/** What the toolkit's own renderer makes of a picture of this size on black. */
template <typename Paint>
juce::Image painted (int width, int height, Paint&& paint)
{
    juce::Image image (juce::Image::RGB, width, height, true);
    juce::Graphics graphics (image);
    paint (graphics);
    return image;
}

/** Whether no pixel is further apart than `tolerance` in any channel, and no more than `maxPixels` are apart at all. */
inline bool isNear (const juce::Image& expected, const juce::Image& actual, int tolerance, int maxPixels)
{
    const auto found = difference (expected, actual);
    return expected.getBounds() == actual.getBounds() && found.largest <= tolerance && found.numPixels <= maxPixels;
}

inline void writePicture (const juce::File& file, const juce::Image& image)
{
    file.deleteFile();
    juce::FileOutputStream out (file);
    juce::PNGImageFormat().writeImageToStream (image, out);
}

/** Says whether two pictures are near each other; if not, writes both and what differs. */
inline bool looksLike (const juce::Image& expected, const juce::Image& actual, int tolerance = 1,
                       int maxPixels = std::numeric_limits<int>::max(), const juce::String& name = {})
{
    if (isNear (expected, actual, tolerance, maxPixels))
        return true;

    juce::Image apart (juce::Image::RGB, actual.getWidth(), actual.getHeight(), true);
    const auto found = difference (expected, actual, apart);
    const auto folder = juce::File::getSpecialLocation (juce::File::tempDirectory).getChildFile ("duojudge-pictures");
    folder.createDirectory();
    writePicture (folder.getChildFile (name + "expected.png"), expected);
    writePicture (folder.getChildFile (name + "actual.png"), actual);
    writePicture (folder.getChildFile (name + "apart.png"), apart);
    std::cerr << found.numPixels << " pixels are apart, by up to " << found.largest << ": see "
              << folder.getFullPathName() << "\n";
    return false;
}
