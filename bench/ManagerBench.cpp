// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodManager.h"
#include "pod/IPod.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
#include <deque>
#include <vector>

// What the pod manager costs, beside a plain copy of the same stereo block ("xCopy" is the ratio).
namespace baylink
{

// The loader's half of a pod needs the toolkit, which stays out of this program.
IPod::~IPod() = default;
void IPod::connect (int)
{
}
const char* IPod::getPodName()
{
    return "Bench";
}
void IPod::onPodRemoved (PodId)
{
}
bool IPod::getPodFlag()
{
    return false;
}

namespace
{

struct BenchPod : IPod
{
    std::int32_t getTypeKey() override { return kSenderTypeKey; }
    int getPodKind() override { return 1; }
    void onPodLinked (PodId, PodId) override {}
};

/** A sender with a listener, and stereo blocks to pass between them. */
struct Bench
{
    explicit Bench (std::int64_t samples) :
        numSamples (static_cast<int> (samples)),
        from (2, std::vector<float> (static_cast<std::size_t> (samples), 0.5f)),
        to (from), source { from[0].data(), from[1].data() }, target { to[0].data(), to[1].data() }
    {
        manager.connect (&sender, 2);
        manager.connect (&listener, 2);
        manager.openStream (sender.id, 2);
        manager.link (listener.id, sender.id);
    }

    void write()
    {
        manager.writeAudioAt (sender.id, source, numSamples, position);
        position += numSamples;
    }

    void copy()
    {
        for (std::size_t channel = 0; channel < 2; ++channel)
            std::memcpy (target[channel], source[channel], from[channel].size() * sizeof (float));

        benchmark::DoNotOptimize (to.data());
        benchmark::ClobberMemory();
    }

    PodManager manager;
    BenchPod sender, listener;
    const int numSamples;
    std::int64_t position = 0;
    std::vector<std::vector<float>> from, to;
    const float* const source[2];
    float* const target[2];
};

template <typename Step>
double secondsOf (int times, Step&& step)
{
    const auto begin = std::chrono::steady_clock::now();

    for (int i = 0; i < times; ++i)
        step();

    return std::chrono::duration<double> (std::chrono::steady_clock::now() - begin).count() / times;
}

/** Times `step` in the benchmark's loop and sets it against the copy. */
template <typename Step>
void measure (benchmark::State& state, Bench& bench, Step&& step)
{
    constexpr int copies = 100000;
    secondsOf (copies, [&] { bench.copy(); });
    const auto copy = secondsOf (copies, [&] { bench.copy(); });
    const auto begin = std::chrono::steady_clock::now();

    for (auto unused : state)
        step();

    const auto elapsed = std::chrono::duration<double> (std::chrono::steady_clock::now() - begin).count();
    state.counters["xCopy"] = elapsed / static_cast<double> (state.iterations()) / copy;
}

void write (benchmark::State& state)
{
    Bench bench (state.range (0));
    measure (state, bench, [&] { bench.write(); });
}

void writeAndRead (benchmark::State& state)
{
    Bench bench (state.range (0));
    measure (state, bench,
             [&]
             {
                 const auto position = bench.position;
                 bench.write();
                 bench.manager.readAudioAt (bench.listener.id, bench.target, bench.numSamples, bench.sender.id,
                                            position);
                 benchmark::ClobberMemory();
             });
}

void readInfo (benchmark::State& state)
{
    Bench bench (state.range (0));
    measure (state, bench, [&] { benchmark::DoNotOptimize (bench.manager.getPodInfo (bench.sender.id)); });
}

void listIds (benchmark::State& state)
{
    PodManager manager;
    std::deque<BenchPod> pods (static_cast<std::size_t> (state.range (0)));
    std::vector<PodId> ids (kMaxPods);

    for (auto& pod : pods)
        manager.connect (&pod, 2);

    for (auto unused : state)
        benchmark::DoNotOptimize (manager.getPodIds (ids.data()));
}

BENCHMARK (write)->Arg (64)->Arg (256)->Arg (1024);
BENCHMARK (writeAndRead)->Arg (64)->Arg (256)->Arg (1024);
BENCHMARK (readInfo)->Arg (64);
BENCHMARK (listIds)->Arg (10)->Arg (1000)->Arg (4096);

}   // namespace
}   // namespace baylink

BENCHMARK_MAIN();
