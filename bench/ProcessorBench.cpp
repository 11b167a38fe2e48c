// SPDX-License-Identifier: GPL-3.0-or-later
// What one block costs, as a multiple of a plain copy of the same stereo block in the same program.
#include "../tests/support/ScratchFolders.h"
#include "Noise.h"
#include "PodSender.h"
#include "engine/CreatePluginFilter.h"
#include "engine/DuoJudgeProcessor.h"
#include "platform/KnownFolders.h"

#include <chrono>
#include <thread>

#include <benchmark/benchmark.h>

using namespace duoJudge;

namespace
{

constexpr double kSampleRate = 48000.0;

/** A host in which sender and listener play in step. */
class Host : private juce::AudioPlayHead
{
public:
    explicit Host (int blockSize) : source (makeNoise (blockSize)), block (2, blockSize)
    {
        processor->setCoin ([] { return 0; });
        processor->setPlayConfigDetails (2, 2, kSampleRate, blockSize);
        processor->setPlayHead (this);
        processor->prepareToPlay (kSampleRate, blockSize);
        pod.prepare (2, blockSize);
        processor->timerCallback();

        for (int i = 0; i < 3 * baylink::kMatchedLatency / blockSize; ++i)
        {
            feed (1);
            process();
        }
    }

    ~Host() override { processor->setPlayHead (nullptr); }

    /** The sender's next blocks; it may run ahead of the listener. */
    void feed (int blocks)
    {
        for (int i = 0; i < blocks; ++i, sent += block.getNumSamples())
        {
            block.makeCopyOf (source, true);
            pod.process (block, sent);
        }

        block.makeCopyOf (source, true);
    }

    void process()
    {
        processor->processBlock (block, midi);
        now += block.getNumSamples();
    }

    void copy()
    {
        for (int channel = 0; channel < 2; ++channel)
            block.copyFrom (channel, 0, source, channel, 0, block.getNumSamples());

        benchmark::ClobberMemory();
    }

    void set (int paramId, float value) { processor->setParamDirect (paramId, value, false); }
    bool isVoteFadeActive() const { return processor->isVoteFadeActive(); }

private:
    juce::Optional<PositionInfo> getPosition() const override
    {
        PositionInfo info;
        info.setIsPlaying (true);
        info.setTimeInSamples (now);
        return info;
    }

    platform::ScopedCommonProgramFilesFolder managerFolder { juce::File (DUO_MANAGER_FOLDER) };
    std::unique_ptr<DuoJudgeProcessor> processor = createPluginFilter (OxJuceProcessorBase::typeVst3);
    PodSender pod { "Bench" };
    juce::AudioSampleBuffer source, block;
    juce::MidiBuffer midi;
    std::int64_t sent = 0, now = 0;
};

template <typename Work>
double secondsOf (Work&& work, int repeats)
{
    const auto start = std::chrono::steady_clock::now();

    for (int i = 0; i < repeats; ++i)
        work();

    return std::chrono::duration<double> (std::chrono::steady_clock::now() - start).count();
}

/** Times `processBlock` alone; `before` brings the processor into the state of the case ahead of a few blocks. */
template <typename Before>
void run (benchmark::State& state, Before&& before)
{
    constexpr int samplesPerBatch = 1920;   // a crossfade's length: what `before` begins lasts for the batch
    Host host (static_cast<int> (state.range (0)));
    const auto blocks = std::clamp (samplesPerBatch / static_cast<int> (state.range (0)), 1, 16);
    double processed = 0.0, copied = 0.0;

    for (auto _ : state)
    {
        before (host);
        host.feed (blocks);
        const auto seconds = secondsOf ([&] { host.process(); }, blocks);
        state.SetIterationTime (seconds / blocks);
        processed += seconds;
        copied += secondsOf ([&] { host.copy(); }, blocks);
    }

    state.counters["xCopy"] = processed / copied;
}

void onA (benchmark::State& state)
{
    run (state, [] (Host&) {});
}

void onB (benchmark::State& state)
{
    run (state, [] (Host& host) { host.set (ToggleAB, 1.0f); });
}

void inCrossfade (benchmark::State& state)
{
    float side = 0.0f;
    run (state, [&side] (Host& host) { host.set (ToggleAB, side = 1.0f - side); });
}

void inVoteFade (benchmark::State& state)
{
    run (state,
         [] (Host& host)
         {
             if (host.isVoteFadeActive())
                 return;

             host.set (Choose, 1.0f);
             host.set (Choose, 0.0f);
         });
}

}   // namespace

BENCHMARK (onA)->Arg (64)->Arg (256)->Arg (1024)->UseManualTime();
BENCHMARK (onB)->Arg (64)->Arg (256)->Arg (1024)->UseManualTime();
BENCHMARK (inCrossfade)->Arg (64)->Arg (256)->Arg (1024)->UseManualTime();
BENCHMARK (inVoteFade)->Arg (64)->Arg (256)->Arg (1024)->UseManualTime();

int main (int argc, char** argv)
{
    const ScratchFolders scratch;
    juce::ScopedJuceInitialiser_GUI toolkit;
    benchmark::Initialize (&argc, argv);

    // Audio comes on a thread of its own: the message thread also runs timers in its blocks.
    std::thread audio ([] { benchmark::RunSpecifiedBenchmarks(); });
    audio.join();
}
