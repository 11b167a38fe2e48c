// SPDX-License-Identifier: GPL-3.0-or-later
// What the timer's look at the pod list costs, by the number of pods in the process.
#include "PodSender.h"
#include "platform/KnownFolders.h"
#include "pod/OxJucePodUser.h"

#include <benchmark/benchmark.h>

#include <deque>

namespace
{

struct Listener : OxJucePodUser
{
    std::int32_t getTypeKey() override { return baylink::kDuoJudgeTypeKey; }
    void onPodLinked (baylink::PodId, baylink::PodId) override {}
};

void refreshPodList (benchmark::State& state)
{
    const platform::ScopedCommonProgramFilesFolder managerFolder (juce::File (DUO_MANAGER_FOLDER));
    Listener listener;
    listener.connect (2);
    std::deque<PodSender> senders;

    while (static_cast<int> (senders.size()) + 1 < state.range (0))
        senders.emplace_back ("Track " + juce::String (senders.size()));

    // The copy that all figures of these programs are set against: a stereo block of 256 samples.
    juce::AudioSampleBuffer from (2, 256), to (2, 256);
    from.clear();
    double refreshed = 0.0, copied = 0.0;
    const auto seconds = [] { return juce::Time::getMillisecondCounterHiRes() / 1000.0; };

    for (auto _ : state)
    {
        const auto start = seconds();
        listener.refreshPodList (baylink::kSenderTypeKey);
        const auto between = seconds();

        for (int channel = 0; channel < 2; ++channel)
            benchmark::DoNotOptimize (
                std::memcpy (to.getWritePointer (channel), from.getReadPointer (channel), 256 * sizeof (float)));

        refreshed += between - start;
        copied += seconds() - between;
    }

    state.counters["xCopy"] = refreshed / copied;
    listener.manager->disconnect (listener.id);
}

}   // namespace

BENCHMARK (refreshPodList)->Arg (10)->Arg (1000)->Arg (4096)->Unit (benchmark::kMicrosecond);

BENCHMARK_MAIN();
