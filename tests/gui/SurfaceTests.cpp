// SPDX-License-Identifier: GPL-3.0-or-later
#include "Pictures.h"
#include "SurfaceRig.h"

namespace
{

using juce::Colour;
using juce::Rectangle;

const Colour kBlue { 0xff336699 };

auto fill (Colour colour)
{
    return [colour] (Sketch& s) { s.colour() = colour, s.drawFilledRect (s.getDrawnLocalBounds()); };
}

TEST (SurfaceTest, DrawsChildrenInTheirOrderAndNothingOfAHiddenTree)
{
    SurfaceRig rig;
    Sketch parent ({ 10, 10, 30, 30 }, fill (kBlue)), child ({ -5, 5, 10, 10 }, fill (juce::Colours::red)),
        sibling ({ 0, 0, 4, 8 }, fill (juce::Colours::lime)), lost ({ 0, 0, 9, 9 }, fill (juce::Colours::white));
    juce::Component plain;
    rig.add (parent);
    plain.addAndMakeVisible (lost);
    parent.addAndMakeVisible (plain);

    for (auto* const element : { &child, &sibling })
    {
        parent.addAndMakeVisible (element);
        element->setOglComponent (rig.editor.get());
    }

    auto picture = rig.picture();
    EXPECT_EQ (picture.getPixelAt (6, 16), juce::Colours::red) << "a child draws outside its parent";
    EXPECT_EQ (picture.getPixelAt (12, 16), juce::Colours::lime) << "a later sibling lies above";
    EXPECT_EQ (picture.getPixelAt (16, 11), kBlue);
    child.toFront (false);
    EXPECT_EQ (rig.picture().getPixelAt (12, 16), juce::Colours::red);
    EXPECT_EQ (lost.numDraws, 0);

    parent.setVisible (false);
    EXPECT_TRUE (rig.frames());
    const int drawn = child.numDraws;
    EXPECT_TRUE (rig.frames (2));
    EXPECT_EQ (child.numDraws, drawn);
    EXPECT_EQ (rig.picture().getPixelAt (16, 11), juce::Colours::black);
}

TEST (SurfaceTest, MakesNoMoreFramesThanItsPaceAllows)
{
    SurfaceRig rig;
    EXPECT_TRUE (rig.frames());
    const auto start = juce::Time::getMillisecondCounterHiRes();
    const int first = rig.numFrames;
    EXPECT_TRUE (rig.frames (40));
    EXPECT_LE (rig.numFrames - first, (juce::Time::getMillisecondCounterHiRes() - start) / 15.0 + 2.0);
}

TEST (SurfaceTest, TakesItsTexturesThroughResizeAndHiding)
{
    SurfaceRig rig;
    auto image = painted (8, 8, [] (juce::Graphics& g) { g.fillAll (kBlue); });
    image.setPixelAt (0, 0, juce::Colours::red), image.setPixelAt (7, 7, juce::Colours::lime);
    OxOglComponentTexture texture;
    texture.setImage (image);
    rig.editor->surface.setBackgroundTexture (&texture);
    const auto expected = [&] (int width, int height)
    {
        return painted (width, height,
                        [&] (juce::Graphics& g) { g.drawImage (image, Rectangle (width, height).toFloat()); });
    };
    texture.filter = 0;
    rig.window.setSize (16, 8);
    rig.editor->setSize (16, 8);
    EXPECT_TRUE (rig.frames (2));
    auto shown = rig.picture();
    EXPECT_EQ (shown.getPixelAt (0, 0), image.getPixelAt (0, 0));
    EXPECT_EQ (shown.getPixelAt (15, 7), image.getPixelAt (7, 7));

    rig.window.setVisible (false);
    EXPECT_FALSE (texture.hasTexture());
    rig.window.setVisible (true);
    rig.editor->setSize (8, 8);
    EXPECT_TRUE (rig.frames (2));
    EXPECT_TRUE (looksLike (expected (8, 8), rig.picture()));
    rig.editor.reset();
    EXPECT_FALSE (texture.hasTexture());
    EXPECT_FALSE (texture.deleteTexture()) << "there is none";
}

TEST (SurfaceTest, StopsOnlyAfterTheFrameInProgress)
{
    SurfaceRig rig;
    Relaxed<bool> isInside = false, hasLeft = false;
    Sketch sketch ({ 0, 0, 9, 9 },
                   [&] (Sketch&)
                   {
                       isInside = true;
                       juce::Thread::sleep (50);
                       hasLeft = true;
                   });
    rig.add (sketch);
    EXPECT_TRUE (pumpUntil ([&] { return isInside.get(); }));
    hasLeft = false;
    EXPECT_TRUE (pumpUntil ([&, count = sketch.numDraws.get()] { return sketch.numDraws > count; }));
    rig.editor->surface.stopRenderThread();
    const int count = sketch.numDraws;
    EXPECT_TRUE (hasLeft);
    juce::Thread::sleep (60);
    EXPECT_EQ (sketch.numDraws, count);
}

TEST (SurfaceTest, OpensAndClosesAgainAndAgain)
{
    const auto numTimes = juce::SystemStats::getEnvironmentVariable ("DUO_OPENINGS", "40").getIntValue();
    SurfaceRig rig;
    Sketch sketch ({ 3, 5, 40, 30 }, fill (kBlue));

    for (int time = 0; time < numTimes; ++time)
    {
        rig.editor.reset();
        sketch.setOglComponent (nullptr);
        rig.open();
        rig.add (sketch);

        if (time % 3 > 0)   // also before the first frame, and in the midst of one
        {
            ASSERT_TRUE (pumpUntil ([&, drawn = sketch.numDraws.get()] { return sketch.numDraws > drawn; }));
        }
    }

    EXPECT_EQ (rig.picture().getPixelAt (30, 30), kBlue);
}

}   // namespace
