// SPDX-License-Identifier: GPL-3.0-or-later
#include "GlCounter.h"
#include "Pictures.h"
#include "SurfaceRig.h"
#include "gui/OxJuceOglFontUser.h"

namespace
{

using juce::Colour;
using juce::Rectangle;

const Colour kBlue { 0xff336699 }, kGlass { 0x80ffff00 };

void drawFrameAndCorner (Sketch& s)
{
    s.colour() = kBlue;
    s.drawFilledRect (s.getDrawnLocalBounds());
    s.colour() = kGlass;
    s.drawRectOutline ({ 2, 3, 20, 9 });
}

TEST (SurfaceTest, DrawsRectanglesToThePixel)
{
    SurfaceRig rig;
    Sketch sketch ({ 3, 5, 40, 30 }, drawFrameAndCorner);
    rig.add (sketch);
    const auto expected = painted (80, 60,
                                   [] (juce::Graphics& g)
                                   {
                                       g.setColour (kBlue);
                                       g.fillRect (3, 5, 40, 30);
                                       g.setColour (kGlass);

                                       for (const auto strip : { Rectangle (5, 8, 20, 1), Rectangle (5, 16, 20, 1),
                                                                 Rectangle (5, 8, 1, 9), Rectangle (24, 8, 1, 9) })
                                           g.fillRect (strip);
                                   });
    EXPECT_TRUE (looksLike (expected, rig.picture()));
}

TEST (SurfaceTest, BlendsTheCornersOfAGradient)
{
    SurfaceRig rig;
    Sketch sketch ({ 10, 10, 64, 40 },
                   [] (Sketch& s)
                   {
                       s.drawGradientQuad ({ 0, 0, 32, 16 }, juce::Colours::red, juce::Colours::lime,
                                           juce::Colours::blue, juce::Colours::white);
                   });
    rig.add (sketch);
    const auto picture = rig.picture();
    const auto isNear = [&] (int x, int y, Colour wanted)
    {
        const auto found = picture.getPixelAt (x, y);
        return std::abs (found.getRed() - wanted.getRed()) + std::abs (found.getGreen() - wanted.getGreen()) +
                   std::abs (found.getBlue() - wanted.getBlue()) <
               48;
    };
    EXPECT_TRUE (isNear (10, 10, juce::Colours::red) && isNear (41, 10, juce::Colours::lime));
    EXPECT_TRUE (isNear (10, 25, juce::Colours::blue) && isNear (41, 25, juce::Colours::white));
    EXPECT_EQ (picture.getPixelAt (42, 10), juce::Colours::black);
}

/** An image with every pixel another. */
juce::Image speckled (juce::Image::PixelFormat format, int width, int height)
{
    juce::Image image (format, width, height, true);
    juce::Random random (7);

    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixelAt (x, y, Colour (static_cast<juce::uint32> (random.nextInt())));

    return image;
}

TEST (SurfaceTest, DrawsImagesOfEveryFormatAndOddSizesToThePixel)
{
    for (const auto format : { juce::Image::RGB, juce::Image::ARGB, juce::Image::SingleChannel })
    {
        SurfaceRig rig;
        const auto image = speckled (format, 13, 7);
        OxOglComponentTexture texture;
        texture.setImage (image);
        Sketch sketch ({ 4, 6, 20, 20 },
                       [&] (Sketch& s)
                       {
                           s.colour() = format == juce::Image::SingleChannel ? kBlue : juce::Colours::white;
                           texture.bind (s.getSurface());
                           texture.drawQuad ({ 2.0f, 1.0f, 13.0f, 7.0f });
                       });
        rig.add (sketch);
        const auto expected = painted (80, 60,
                                       [&] (juce::Graphics& g)
                                       {
                                           g.setColour (kBlue);
                                           g.drawImageAt (image, 6, 7, format == juce::Image::SingleChannel);
                                       });
        EXPECT_TRUE (looksLike (expected, rig.picture(), 2)) << format;
        rig.editor.reset();
    }
}

TEST (SurfaceTest, DrawsChildrenInTheirOrderAndNothingOfAHiddenTree)
{
    SurfaceRig rig;
    const auto fill = [] (Colour colour)
    { return [colour] (Sketch& s) { s.colour() = colour, s.drawFilledRect (s.getDrawnLocalBounds()); }; };
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

TEST (SurfaceTest, ShowsNothingAndTicksNotUntilRenderingIsEnabled)
{
    SurfaceRig rig (80, 60, false);
    Sketch sketch ({ 0, 0, 9, 9 });
    rig.add (sketch);
    EXPECT_TRUE (pumpUntil ([deadline = juce::Time::getMillisecondCounter() + 100]
                            { return juce::Time::getMillisecondCounter() > deadline; }));
    EXPECT_TRUE (sketch.numDraws == 0 && rig.numTicks == 0 && ! rig.editor->isTimerRunning());
    rig.editor->surface.enableRendering();
    EXPECT_TRUE (pumpUntil ([&] { return sketch.numDraws > 1 && rig.numTicks > 1; }));
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
    const auto image = speckled (juce::Image::RGB, 8, 8);
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
    Sketch sketch ({ 3, 5, 40, 30 }, drawFrameAndCorner);

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

TEST (SurfaceTest, LetsTheMessageThreadChangeTheSceneWhileFramesRun)
{
    SurfaceRig rig;
    Sketch parent ({ 0, 0, 80, 60 });
    rig.add (parent);
    juce::Random random (3);
    std::vector<std::unique_ptr<Sketch>> sketches;

    for (int step = 0; step < 2000; ++step)
    {
        if (sketches.size() < 8)
        {
            sketches.push_back (std::make_unique<Sketch> (Rectangle (0, 0, 5, 5), drawFrameAndCorner));
            sketches.back()->setOglComponent (rig.editor.get());
            parent.addAndMakeVisible (*sketches.back());
        }

        auto& sketch = sketches[static_cast<std::size_t> (random.nextInt (static_cast<int> (sketches.size())))];
        sketch->setBounds (random.nextInt (60), random.nextInt (50), 1 + random.nextInt (20), 1 + random.nextInt (20));
        sketch->setVisible (random.nextBool());
        sketch->toFront (false);

        if (random.nextInt (4) == 0)
        {
            parent.removeChildComponent (sketch.get());
            std::swap (sketch, sketches.back());
            sketches.pop_back();
        }

        if (step % 20 == 0)
        {
            EXPECT_TRUE (rig.frames());
        }
    }

    rig.editor.reset();
}

/** Keeps the calls of the last whole frame, or draws frames without any OpenGL. */
struct CountingRig : SurfaceRig
{
    ~CountingRig() override { editor.reset(); }

    void frameBegins() override
    {
        GlCounter::calls.clear();
        GlCounter::counts = ! drawsNowhere;
        GlCounter::passesOn = ! drawsNowhere;
    }
    void frameEnds() override
    {
        GlCounter::counts = false;
        GlCounter::passesOn = true;
        calls = GlCounter::calls;
    }

    Relaxed<bool> drawsNowhere = false;
    std::map<std::string, int> calls;
};

TEST (SurfaceTest, TellsOpenGlOnlyWhatChanges)
{
    CountingRig rig;
    Sketch sketch ({ 3, 5, 40, 30 },
                   [] (Sketch& s)
                   {
                       s.colour() = kBlue;

                       for (int i = 0; i < 100; ++i)
                           s.drawFilledRect ({ i, 0, 1, 9 });

                       s.drawGradientQuad ({ 0, 9, 9, 9 }, kBlue, kBlue, kGlass, kGlass);
                   });
    rig.add (sketch);
    std::map<std::string, int> calls;
    rig.atFrameEnd ([&] { calls = rig.calls; });
    EXPECT_EQ (calls["glRecti"], 100);
    EXPECT_EQ (calls["glVertex2i"], 4);
    EXPECT_EQ (calls["glColor4f"], 3) << "from nothing to blue, at two corners to glass, and back to nothing";
    EXPECT_EQ (calls["glEnable"] + calls["glDisable"], 2) << "blending for the sketch, and off for what follows";
    EXPECT_EQ (calls["glBlendFunc"], 2);
    EXPECT_EQ (calls["glLineWidth"] + calls["glPointSize"], 0);
}

TEST (SurfaceTest, AllocatesNothingForAFrame)
{
    CountingRig rig;
    std::vector<std::unique_ptr<Sketch>> sketches;
    OxJuceOglFontUser writer;
    writer.setOglComponent (rig.editor.get());
    OxOglComponentTexture texture;
    texture.setImage (speckled (juce::Image::ARGB, 9, 9));
    const juce::String text = "A text";

    for (int i = 0; i < 40; ++i)
    {
        sketches.push_back (std::make_unique<Sketch> (Rectangle (i, i, 20, 20),
                                                      [&] (Sketch& s)
                                                      {
                                                          drawFrameAndCorner (s);
                                                          texture.bind (s.getSurface());
                                                          texture.drawQuad ({ 0.0f, 0.0f, 9.0f, 9.0f });
                                                          writer.drawText ({ 0, 0, 20, 12 }, text);
                                                      }));
        rig.add (*sketches.back());
    }

    EXPECT_TRUE (rig.frames (3));
    rig.drawsNowhere = true;
    EXPECT_TRUE (rig.frames (2));
    EXPECT_EQ (rig.allocations, 0);
    rig.drawsNowhere = false;
    EXPECT_TRUE (rig.frames (2));
    rig.editor.reset();   // before what its frames read
}

}   // namespace
