// SPDX-License-Identifier: GPL-3.0-or-later
// What the product's window costs: a tick of its timer by the number of pods, and a frame of each view. Needs a display.
#include "PodSender.h"
#include "editor/DuoJudgeEditor.h"
#include "engine/DuoJudgeProcessor.h"
#include "platform/KnownFolders.h"

#include <benchmark/benchmark.h>

namespace juce
{
bool dispatchNextMessageOnSystemQueue (bool returnIfNone);
}

namespace
{

/** The window over so many pods; it measures its frames up to the last pixel. */
struct MeasuringEditor : DuoJudgeEditor
{
    using DuoJudgeEditor::DuoJudgeEditor;
    static double now() { return juce::Time::getMillisecondCounterHiRes(); }
    void onPreRender() override { juce::gl::glFinish(), begun = now(); }
    void drawProductOverlay() override
    {
        juce::gl::glFinish();
        frameTime += now() - begun;
        numFrames += 1;
    }
    double begun = 0.0;
    Relaxed<double> frameTime = 0.0;   // milliseconds
    Relaxed<int> numFrames = 0;
};

struct Rig
{
    explicit Rig (int numPods)
    {
        while (static_cast<int> (pods.size()) < numPods)
            pods.push_back (std::make_unique<PodSender> ("Track " + juce::String (pods.size())));

        processor.timerCallback();
    }

    const juce::ScopedJuceInitialiser_GUI toolkit;
    const platform::ScopedCommonProgramFilesFolder managerFolder { juce::File (DUO_MANAGER_FOLDER) };
    std::vector<std::unique_ptr<PodSender>> pods;
    DuoJudgeProcessor processor { DuoJudgeProcessor::typeVst3 };
    juce::Component window;
    MeasuringEditor editor { processor };
};

void tick (benchmark::State& state)
{
    Rig rig (static_cast<int> (state.range (0)));

    for (auto _ : state)
        rig.editor.onTimerTick();
}

/** One click on the button at the lower left leads from the normal view to the test, the next to the results. */
void frame (benchmark::State& state)
{
    Rig rig (1);
    rig.window.setSize (535, 267);
    rig.window.addToDesktop (0);
    rig.window.setVisible (true);
    rig.window.addAndMakeVisible (rig.editor);

    for (int clicks = 0; clicks < state.range (0); ++clicks)
        for (const auto value : { 1.0f, 0.0f })
            dynamic_cast<OxJuceButton&> (*rig.editor.getComponentAt (110, 220)).setValue (value, true);

    const auto waitForFrames = [&editor = rig.editor] (int count)
    {
        while (editor.numFrames < count)
            if (! juce::dispatchNextMessageOnSystemQueue (true))
                juce::Thread::sleep (1);
    };
    waitForFrames (50);
    const int first = rig.editor.numFrames;
    rig.editor.frameTime = 0.0;

    for (auto _ : state)
        waitForFrames (rig.editor.numFrames + 1);

    state.counters["frame_us"] = 1000.0 * rig.editor.frameTime / std::max (1, rig.editor.numFrames - first);
    rig.editor.surface.stopRenderThread();
}

BENCHMARK (tick)->ArgName ("pods")->Arg (1)->Arg (4094)->Unit (benchmark::kMicrosecond);
BENCHMARK (frame)->ArgName ("view")->DenseRange (0, 2)->Iterations (300)->Unit (benchmark::kMillisecond);

}   // namespace

BENCHMARK_MAIN();
