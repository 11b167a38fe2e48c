// SPDX-License-Identifier: GPL-3.0-or-later
#include "Mouse.h"
#include "controls/OxJuceScalableButton.h"
#include "gui/GlCounter.h"
#include "gui/Pictures.h"
#include "gui/SurfaceRig.h"

namespace
{

using Stops = std::vector<OxJuceMultiGradientHelper::Stop>;

constexpr int kSize = 32;   // pixels of the picture

/** Every pixel of a corner is another one; what is stretched is all alike. */
juce::Image frame (int corner)
{
    juce::Image image (juce::Image::RGB, kSize, kSize, false);
    image.clear (image.getBounds(), juce::Colour (200, 180, 90));
    const auto isCorner = [corner] (int place) { return place < corner - 1 || place > kSize - corner; };

    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x)
            if (isCorner (x) && isCorner (y))
                image.setPixelAt (x, y, juce::Colour::fromRGB (juce::uint8 (x * 8), juce::uint8 (y * 8), 77));

    return image;
}

struct ScalableRig : SurfaceRig
{
    ScalableRig (int width, int height, int corner = 9) : SurfaceRig (width, height), button ("B", "", corner)
    {
        button.setBounds (0, 0, width, height);
        add (button);
    }
    ~ScalableRig() override { editor = nullptr; }

    void frameBegins() override { GlCounter::passesOn = ! drawsNowhere; }
    void frameEnds() override { GlCounter::passesOn = true; }

    OxJuceScalableButton button;
    Relaxed<bool> drawsNowhere = false;
};

TEST (ScalableButtonTest, NeverScalesACorner)
{
    using Case = std::array<int, 3>;   // width, height, corner

    for (const auto& [w, h, c] : { Case { 100, 40, 9 }, { 150, 81, 9 }, { 102, 46, 4 }, { 104, 47, 4 }, { 18, 18, 9 } })
    {
        ScalableRig rig (w, h, c);
        const auto image = frame (c);
        rig.button.setStripImage (image, 0, 0);
        auto expected = image.rescaled (w, h);
        expected.clear (expected.getBounds(), image.getPixelAt (kSize / 2, kSize / 2));
        juce::Graphics graphics (expected);

        for (const auto& [x, y] : { std::pair (0, 0), { 0, 1 }, { 1, 0 }, { 1, 1 } })
            graphics.drawImage (image, x * (w - c), y * (h - c), c, c, x * (kSize - c), y * (kSize - c), c, c);

        const auto twin = [&, width = w, height = h]
        { return painted (width, height, [&] (auto& g) { rig.button.paint (g); }); };
        EXPECT_TRUE (looksLike (expected, rig.picture())) << w << " x " << h;
        EXPECT_TRUE (looksLike (twin(), rig.picture(), 2));
        rig.button.setLocked (true);
        rig.button.setTintColour (juce::Colour (0xc00080ff), 0);
        EXPECT_TRUE (looksLike (twin(), rig.picture(), 2));
    }
}

/** What OpenGL makes of 100 x 40 pixels of white with these colours at these rows. */
juce::Image bands (const Stops& rows)
{
    OxJuceMultiGradientHelper gradient;

    for (const auto& row : rows)
        gradient.addStop (row.position, row.colour);

    return painted (100, 40,
                    [&] (juce::Graphics& g)
                    {
                        for (int y = 0; y < 40; ++y)
                        {
                            g.setColour (gradient.colourAt ((static_cast<float> (y) + 0.5f) / 40.0f));
                            g.fillRect (0, y, 100, 1);
                        }
                    });
}

TEST (ScalableButtonTest, DrawsTheGradientOfItsStateAndOverItThatOfTheOverlay)
{
    const auto red = juce::Colours::red, blue = juce::Colours::blue, lime = juce::Colours::lime;
    const Stops rows[] { { { 1.0f, blue }, { 0.0f, red }, { 0.5f, lime } },
                         { { 0.1f, lime }, { 0.9f, blue } },   // within the corners: no rows of their own
                         { { 0.0f, juce::Colours::white }, { 1.0f, red } },
                         { { 0.0f, juce::Colours::yellow }, { 1.0f, blue } } };
    const auto upper = lime.interpolatedWith (blue, 0.125f / 0.8f), lower = lime.interpolatedWith (blue, 0.675f / 0.8f);
    const auto onPicture = bands ({ { 0.0f, lime }, { 0.225f, upper }, { 0.775f, lower }, { 1.0f, blue } });
    juce::Image white (juce::Image::RGB, kSize, kSize, false);
    white.clear (white.getBounds(), juce::Colours::white);
    ScalableRig rig (100, 40);
    const auto shows = [&rig] (const juce::Image& expected) { return looksLike (expected, rig.picture(), 3); };
    rig.button.setStripImage (white, 9, 9);
    rig.button.setGradient (rows[0], 0);
    EXPECT_TRUE (shows (bands (rows[0])));
    rig.button.setValue (1.0f, false);
    EXPECT_TRUE (shows (painted (100, 40, [] (auto&) {}))) << "a state that has no gradient while another has";

    for (const int state : { 1, 2, 3 })
        rig.button.setGradient (rows[state], state);

    rig.button.mouseEnter (mouseAt (rig.button));
    EXPECT_TRUE (rig.frames (12));
    EXPECT_TRUE (shows (onPicture)) << "the pointer alone";
    rig.button.hoverFadeDisabled = false;
    rig.button.mouseEnter (mouseAt (rig.button));
    EXPECT_TRUE (rig.frames (12));
    EXPECT_TRUE (shows (bands (rows[3])));
    rig.button.setValue (0.0f, false);
    EXPECT_TRUE (shows (bands (rows[2])));
    rig.button.dimsWhenLocked = false;
    rig.button.setLocked (true);
    EXPECT_TRUE (shows (bands (rows[0]))) << "no overlay on a locked button";

    rig.button.setBounds (0, 0, 5, 5);   // below the corners' size
    rig.drawsNowhere = true;
    EXPECT_TRUE (rig.frames (2));
    EXPECT_EQ (rig.allocations, 0);
}

TEST (ScalableButtonTest, DropsALabelThatDoesNotFit)
{
    ScalableRig rig (40, 20);
    const auto isInked = [&rig] (const char* text, int fontSize)
    {
        rig.button.setLabel (text, 4);
        rig.button.setFont (rig.editor->surface.getFont (fontSize));
        return difference (painted (40, 20, [] (auto&) {}), rig.picture()).numPixels > 0;
    };
    rig.button.setStripImage (juce::Image (juce::Image::ARGB, kSize, kSize, true), 0, 0);
    EXPECT_TRUE (isInked ("Hill", 14));
    EXPECT_FALSE (isInked ("Hill and dale", 14));
    EXPECT_FALSE (isInked ("H", 28)) << "too high";
    rig.button.drawsOversizeLabel = true;
    EXPECT_TRUE (isInked ("Hill and dale", 14));
}

}   // namespace
