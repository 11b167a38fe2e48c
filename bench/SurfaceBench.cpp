// SPDX-License-Identifier: GPL-3.0-or-later
// What a frame of elements and texts costs on top of the OpenGL calls that it cannot do without. Needs a display.
#include "engine/DuoJudgeProcessor.h"
#include "gui/OxJuceEditorBase.h"
#include "gui/OxJuceOglFontUser.h"

#include <benchmark/benchmark.h>

#include <deque>

using namespace juce::gl;

namespace juce
{
bool dispatchNextMessageOnSystemQueue (bool returnIfNone);
}

namespace
{

constexpr int kNumElements = 40, kNumTexts = 20;
const juce::String kText = "Two sources, one ear";

double now()
{
    return juce::Time::getMillisecondCounterHiRes();
}

struct Box : OxOglChildComponent
{
    void draw (int) override
    {
        getSurface()->glState.pending.colour = juce::Colours::darkgrey;
        drawFilledRect (getDrawnLocalBounds());
    }
};

struct Label : OxOglChildComponent, OxJuceOglFontUser
{
    void draw (int) override { drawText (getDrawnLocalBounds(), kText); }
};

/** Measures its elements, and after them the bare calls for the same pixels. */
struct MeasuringEditor : OxJuceEditorBase
{
    explicit MeasuringEditor (OxJuceProcessorBase& owner) : OxJuceEditorBase (owner) {}
    ~MeasuringEditor() override { stopRendering(); }

    void onPreRender() override { glFinish(), begun = now(); }

    void drawOverlays() override
    {
        glFinish();
        const auto drawn = now();
        drawBare();
        glFinish();
        elementTime += drawn - begun;
        bareTime += now() - drawn;
        numFrames += 1;
    }

    void drawBare() const
    {
        glDisable (GL_TEXTURE_2D);
        glColor4f (0.3f, 0.3f, 0.3f, 1.0f);

        for (int i = 0; i < kNumElements; ++i)
            glRecti (i * 5, i * 5, i * 5 + 60, i * 5 + 20);

        glEnable (GL_TEXTURE_2D);
        glColor4f (1.0f, 1.0f, 1.0f, 1.0f);

        for (int i = 0; i < kNumTexts; ++i)
        {
            glBegin (GL_QUADS);

            for (int x = 0; x < kText.length() * 6; x += 6)
            {
                glTexCoord2f (0.0f, 0.0f), glVertex2i (x, i * 12);
                glTexCoord2f (0.0f, 0.1f), glVertex2i (x, i * 12 + 15);
                glTexCoord2f (0.1f, 0.1f), glVertex2i (x + 6, i * 12 + 15);
                glTexCoord2f (0.1f, 0.0f), glVertex2i (x + 6, i * 12);
            }

            glEnd();
        }

        glDisable (GL_TEXTURE_2D);
    }

    double begun = 0.0;
    Relaxed<double> elementTime = 0.0, bareTime = 0.0;
    Relaxed<int> numFrames = 0;
};

void drawFrames (benchmark::State& state)
{
    const juce::ScopedJuceInitialiser_GUI toolkit;
    DuoJudgeProcessor processor (DuoJudgeProcessor::typeVst3);
    juce::Component window;
    MeasuringEditor editor (processor);
    std::deque<Box> boxes (kNumElements);
    std::deque<Label> labels (kNumTexts);
    window.setSize (535, 267);
    window.addToDesktop (0);
    window.setVisible (true);
    editor.setSize (535, 267);
    window.addAndMakeVisible (editor);

    const auto add = [&] (OxOglChildComponent& element, juce::Rectangle<int> bounds)
    {
        element.setBounds (bounds);
        editor.addControl (element);
    };

    for (int i = 0; i < kNumElements; ++i)
        add (boxes[static_cast<std::size_t> (i)], { i * 5, i * 5, 60, 20 });

    for (int i = 0; i < kNumTexts; ++i)
        add (labels[static_cast<std::size_t> (i)], { 0, i * 12, 200, 15 });

    editor.surface.enableRendering();

    const auto waitForFrames = [&] (int count)
    {
        while (editor.numFrames < count)
            if (! juce::dispatchNextMessageOnSystemQueue (true))
                juce::Thread::sleep (1);
    };
    waitForFrames (10);
    editor.elementTime = editor.bareTime = 0.0;
    const int first = editor.numFrames;

    for (auto _ : state)
        waitForFrames (editor.numFrames + 1);

    const auto numFrames = std::max (1, editor.numFrames - first);
    editor.surface.stopRenderThread();
    state.counters["frame_us"] = 1000.0 * editor.elementTime / numFrames;
    state.counters["bare_us"] = 1000.0 * editor.bareTime / numFrames;
    state.counters["ratio"] = editor.elementTime / editor.bareTime;
}

BENCHMARK (drawFrames)->Iterations (300)->Unit (benchmark::kMillisecond);

}   // namespace

BENCHMARK_MAIN();
