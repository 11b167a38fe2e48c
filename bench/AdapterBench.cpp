// SPDX-License-Identifier: GPL-3.0-or-later
// What the plug-in's interface costs on top of the processor behind it, and what an instance costs.
#include "../tests/support/ScratchFolders.h"
#include "Noise.h"
#include "PodSender.h"
#include "engine/CreatePluginFilter.h"
#include "engine/DuoJudgeProcessor.h"
#include "platform/Library.h"

#include <chrono>
#include <cstdlib>
#include <thread>

#include <benchmark/benchmark.h>
#include <pluginterfaces/base/ipluginbase.h>
#include <pluginterfaces/vst/ivstaudioprocessor.h>
#include <pluginterfaces/vst/ivstcomponent.h>
#include <pluginterfaces/vst/ivstprocesscontext.h>

using namespace Steinberg;

namespace
{

constexpr double kSampleRate = 48000.0;

/** The built plug-in, loaded as a host loads it. */
IPluginFactory& getFactory()
{
    static auto* const factory = []
    {
        const auto library = platform::loadLibrary (DUO_PLUGIN_FILE);
        return reinterpret_cast<IPluginFactory* (*) ()> (platform::findExport (library, "GetPluginFactory"))();
    }();
    return *factory;
}

/** Makes the class at `index` of the factory: 0 the component, 1 the controller. */
template <typename Interface>
IPtr<Interface> make (int index)
{
    PClassInfo info;
    void* made = nullptr;
    getFactory().getClassInfo (index, &info);
    getFactory().createInstance (info.cid, Interface::iid, &made);
    return owned (static_cast<Interface*> (made));
}

/** The plug-in and the bare processor on two tracks, both listening to one pod. */
class Host : private juce::AudioPlayHead
{
public:
    explicit Host (int blockSize) : source (makeNoise (blockSize)), input (source), output (2, blockSize)
    {
        pod.prepare (2, blockSize);

        processor->setPlayConfigDetails (2, 2, kSampleRate, blockSize);
        processor->setPlayHead (this);
        processor->prepareToPlay (kSampleRate, blockSize);

        Vst::ProcessSetup setup { Vst::kRealtime, Vst::kSample32, blockSize, kSampleRate };
        component->initialize (nullptr);
        FUnknownPtr<Vst::IAudioProcessor> (component)->setupProcessing (setup);
        component->setActive (1);

        inputBus.numChannels = outputBus.numChannels = 2;
        inputBus.channelBuffers32 = const_cast<float**> (input.getArrayOfWritePointers());
        outputBus.channelBuffers32 = const_cast<float**> (output.getArrayOfWritePointers());
        data.symbolicSampleSize = Vst::kSample32;
        data.numSamples = blockSize;
        data.numInputs = data.numOutputs = 1;
        data.inputs = &inputBus;
        data.outputs = &outputBus;
        data.processContext = &context;
        context.state = Vst::ProcessContext::kPlaying;
    }

    ~Host() override
    {
        processor->setPlayHead (nullptr);
        component->setActive (0);
        component->terminate();
    }

    void feed()
    {
        auto block = source;
        pod.process (block, context.projectTimeSamples);
    }

    void throughInterface() { audio->process (data); }
    void directly() { processor->processBlock (input, midi); }

    void advance()
    {
        context.projectTimeSamples += source.getNumSamples();
        input.makeCopyOf (source, true);
    }

private:
    juce::Optional<PositionInfo> getPosition() const override
    {
        PositionInfo info;
        info.setIsPlaying (true);
        info.setTimeInSamples (context.projectTimeSamples);
        return info;
    }

    PodSender pod { "Bench" };
    std::unique_ptr<DuoJudgeProcessor> processor = createPluginFilter (OxJuceProcessorBase::typeVst3);
    IPtr<Vst::IComponent> component = make<Vst::IComponent> (0);
    FUnknownPtr<Vst::IAudioProcessor> audio { component };
    juce::AudioSampleBuffer source, input, output;
    juce::MidiBuffer midi;
    Vst::AudioBusBuffers inputBus, outputBus;
    Vst::ProcessContext context {};
    Vst::ProcessData data;
};

template <typename Work>
double secondsOf (Work&& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double> (std::chrono::steady_clock::now() - start).count();
}

void process (benchmark::State& state)
{
    Host host (static_cast<int> (state.range (0)));
    double seconds[2] {};   // directly, through the interface
    bool throughFirst = false;

    const auto run = [&] (bool through)
    {
        const auto taken = secondsOf ([&] { through ? host.throughInterface() : host.directly(); });
        seconds[through] += taken;
        return taken;
    };

    for (auto _ : state)
    {
        // By turns, since the first finds the pod's latest block farther away.
        throughFirst = ! throughFirst;
        host.feed();
        const auto first = run (throughFirst);
        const auto second = run (! throughFirst);
        state.SetIterationTime (throughFirst ? first : second);
        host.advance();
    }

    state.counters["xDirect"] = seconds[true] / seconds[false];
}

void createAndDestroy (benchmark::State& state)
{
    const auto keepsToolkitUp = make<Vst::IComponent> (0);

    for (auto _ : state)
    {
        const auto component = make<Vst::IComponent> (0);
        const auto controller = make<IPluginBase> (1);
        component->initialize (nullptr);
        controller->initialize (nullptr);
        controller->terminate();
        component->terminate();
    }
}

}   // namespace

BENCHMARK (process)->Arg (64)->Arg (256)->Arg (1024)->UseManualTime();
BENCHMARK (createAndDestroy)->Unit (benchmark::kMicrosecond)->UseRealTime();

int main (int argc, char** argv)
{
    // A home of its own, so that all meet the built manager, and nobody's settings.
    const auto home = juce::File::createTempFile ("home");
    const juce::File manager (DUO_MANAGER_FILE);
    const auto installed = home.getChildFile (".local/lib").getChildFile (manager.getParentDirectory().getFileName());
    installed.createDirectory();
    manager.copyFileTo (installed.getChildFile (manager.getFileName()));
    ::setenv ("HOME", home.getFullPathName().toRawUTF8(), 1);
    const ScratchFolders scratch;

    juce::ScopedJuceInitialiser_GUI toolkit;
    benchmark::Initialize (&argc, argv);
    std::thread audio ([] { benchmark::RunSpecifiedBenchmarks(); });
    audio.join();
    home.deleteRecursively();
}
