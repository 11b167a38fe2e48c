// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestPod.h"

#include <atomic>
#include <numeric>
#include <optional>

using namespace baylink;

namespace
{

/** How the transport runs: one of these, or the length of a loop. While it is stopped, the sender gives no positions
    and the listener repeats its last one; plain blocks have none on either side. */
constexpr int stop = -1, plain = 0, stand = 1, play = 1 << 30;

constexpr int noSender = 1, noListener = 2, noReads = 3, newSender = 4;   // who misses a step, or is new in it
constexpr int senderFirst = 0, listenerFirst = 1, drawn = 2;              // whom the host calls first in each cycle
constexpr int equalBlocks = 6, anyBlocks = 15, allHosts = 16;             // the first so many hosts

// clang-format off
struct Host { int cycle, senderBlock, listenerBlock, order; };   // in samples, where 0 draws each one anew
struct Step { int lap, from, samples, without = 0; };            // `from` is a timeline position
struct Story { const char* name; std::vector<Step> steps; int hosts = allHosts; };

const Host kHosts[] = {
    { 64, 64, 64, senderFirst }, { 64, 64, 64, listenerFirst }, { 1024, 1024, 1024, senderFirst },
    { 1024, 1024, 1024, listenerFirst }, { 4096, 4096, 4096, senderFirst }, { 4096, 4096, 4096, listenerFirst },
    { 1, 1, 1, drawn }, { 441, 441, 441, drawn }, { 1024, 256, 1024, drawn }, { 1024, 1024, 256, drawn },
    { 4096, 1, 4096, listenerFirst }, { 4096, 4096, 1, senderFirst }, { 3000, 0, 0, drawn }, { 0, 0, 0, drawn },
    { 2048, 64, 64, listenerFirst }, { 16384, 512, 512, senderFirst },
};

const Story kStories[] = {
    { "plays from the start", { { play, 0, 90000 } } }, { "gives no positions", { { plain, 0, 90000 } }, anyBlocks },
    { "stands while the material moves",
      { { stand, 0, 1024 }, { stand, 0, 752 }, { stand, 0, 272 }, { stand, 0, 1296 }, { play, 0, 30000 } } },
    { "stops and goes on", { { play, 0, 30000 }, { stop, 0, 30000 },
      { play, 30000, 30000 }, { stand, 60000, 30000 }, { play, 60000, 30000 } } },
    { "seeks", { { play, 500000, 30000 }, { play, 100, 30000 }, { play, 515000, 30000 } } },
    { "loops over blocks", { { play, 0, 10000 }, { 20480, 10000, 120000 }, { play, 30480, 30000 } } },
    { "loops within a block",
      { { play, 0, 9000 }, { 1000, 9000, 30000 }, { 1024, 9000, 30000 }, { 64, 9000, 30000 }, { play, 1, 9000 } } },
    { "links late", { { play, 0, 30000, noReads }, { play, 30000, 30000 }, { play, 77, 30000 } } },
    { "starts for the first time where it stands",
      { { stop, 0, 1000, noReads }, { stop, 0, 2000 }, { stand, 0, 4096 }, { play, 0, 30000 } } },
    { "replaces the sender", { { play, 0, 30000 }, { play, 30000, 30000, newSender } } },
    { "replaces it while stopped", { { play, 0, 3000 }, { stop, 0, 30000, newSender } }, anyBlocks },

    // One side misses what the other one gets.
    { "bypasses", { { play, 0, 30000 }, { play, 30000, 20000, noListener }, { play, 50000, 30000 } }, equalBlocks },
    { "bypasses in a seek", { { play, 50000, 30000 }, { play, 80000, 640, noListener },
      { play, 0, 99, noListener }, { play, 99, 30000 } }, equalBlocks },
    { "bypasses plainly", { { plain, 0, 30000 }, { plain, 0, 50000, noListener }, { plain, 0, 30000 } }, equalBlocks },
    { "pauses", { { play, 0, 30000 }, { play, 30000, 20000, noSender }, { play, 50000, 30000 } }, equalBlocks },
    { "misses a block", { { play, 0, 30720 }, { play, 30720, 64, noSender }, { play, 30784, 30000 } }, equalBlocks },
    { "pauses plainly", { { plain, 0, 30000 }, { plain, 0, 50000, noSender }, { plain, 0, 30000 } }, equalBlocks },
    { "pauses while standing",
      { { stand, 5, 30000 }, { stand, 5, 50000, noSender }, { stand, 5, 30000 }, { play, 5, 30000 } }, equalBlocks },
};
// clang-format on

/** Gives a sender and a listener the same signal, and compares what the listener reads with its own signal 4096 samples
    late: equal where the sender had the sample, silent where it missed it. */
class HostRig
{
public:
    explicit HostRig (const Host& hostToPlay) : host (hostToPlay) {}

    void run (const Step& step)
    {
        if (! sender || step.without == newSender)
        {
            manager.openStream (sender.emplace (&manager).id, 1);
            std::fill (sent.begin(), sent.end(), 0.0f);
        }

        plays = step.lap > 0;

        for (const auto begin = now, end = now + step.samples; now < end;)
        {
            const auto cycleEnd = std::min (end, now + orDrawn (host.cycle));
            const auto turned = (host.order == drawn ? orDrawn (0) % 2 : host.order) == listenerFirst;

            for (const auto sends : { ! turned, turned })
                for (auto at = now; at < cycleEnd && step.without != (sends ? noSender : noListener);)
                {
                    const auto length =
                        std::min (cycleEnd - at, orDrawn (sends ? host.senderBlock : host.listenerBlock));
                    const auto label = step.lap > 0                  ? Label (step.from + (at - begin) % step.lap)
                                       : step.lap == stop && ! sends ? lastLabel
                                                                     : Label();
                    sends ? send (at, length, label) : listen (at, length, label, step.without != noReads);
                    at += length;
                }

            now = cycleEnd;
        }
    }

    int compared = 0, wrong = 0, firstWrong = 0;   // samples, samples, host time

private:
    using Label = std::optional<int>;

    int orDrawn (int length) { return length > 0 ? length : std::uniform_int_distribution<int> (1, 4096) (random); }

    void send (int at, int length, Label label)
    {
        sent.resize (static_cast<std::size_t> (at + length));
        std::iota (sent.begin() + at, sent.end(), static_cast<float> (at));
        const float* const channels[] = { sent.data() + at };
        label ? manager.writeAudioAt (sender->id, channels, length, *label)
              : manager.writeAudio (sender->id, channels, length);
    }

    void listen (int at, int length, Label label, bool reads)
    {
        inputs.resize (inputs.size() + static_cast<std::size_t> (length));
        std::iota (inputs.end() - length, inputs.end(), at);

        if (! reads)
            return;

        std::vector<float> block (static_cast<std::size_t> (length));
        float* const channels[] = { block.data() };
        listener.choose (sender->id);
        lastLabel = label;
        manager.setPlaying (listener.id, plays);
        label ? manager.readAudioAt (listener.id, channels, length, sender->id, *label)
              : manager.readAudio (listener.id, channels, length, sender->id);

        for (int i = 0; i < length; ++i)
            if (const auto own = *(inputs.end() - length - kMatchedLatency + i); own > 0 && ++compared)
                if (block[i] != (own < static_cast<int> (sent.size()) ? sent[own] : 0.0f) && wrong++ == 0)
                    firstWrong = at + i;
    }

    const Host host;
    PodManager manager;
    std::optional<TestPod> sender;
    TestPod listener { &manager };
    int now = 1;
    bool plays = false;
    Label lastLabel = 0;
    std::vector<float> sent { 0.0f };   // by host time, which is the signal; 0 where the sender missed it
    std::vector<int> inputs = std::vector<int> (kMatchedLatency);   // host time of all that the listener got
    std::mt19937 random { 4096 };
};

}   // namespace

TEST (MatchedTimingTest, NullsInEveryStoryOnEveryHost)
{
    for (const auto& story : kStories)
        for (int i = 0; i < story.hosts; ++i)
        {
            HostRig rig (kHosts[i]);
            std::for_each (story.steps.begin(), story.steps.end(), [&] (const Step& step) { rig.run (step); });
            EXPECT_EQ (rig.wrong, 0) << story.name << " on host " << i << ", first at " << rig.firstWrong;
            EXPECT_GT (rig.compared, 15000);
        }
}

TEST (MatchedTimingTest, NullsInRunningThreadsThatMeetOnceACycle)
{
    constexpr int cycles = 300, cycle = 1024;
    PodManager manager;
    TestPod sender { &manager }, listener { &manager };
    std::atomic<int> arrived { 0 }, wrong { 0 };
    manager.openStream (sender.id, 1);
    listener.choose (sender.id);

    const auto run = [&] (PodId id, int length)
    {
        for (int now = 0, finished = 0; now < cycles * cycle; now += length)
        {
            std::vector<float> block (static_cast<std::size_t> (length)), own (block);
            float *const target[] = { block.data() }, *const source[] = { own.data() };
            const auto label = now % (50 * cycle);   // the transport loops
            std::iota (own.begin(), own.end(), static_cast<float> (now));
            id == sender.id ? manager.writeAudioAt (id, source, length, label)
                            : manager.readAudioAt (id, target, length, sender.id, label);

            for (int i = 0; i < length && id != sender.id; ++i)
                wrong += block[i] == std::max (0.0f, own[i] - kMatchedLatency) ? 0 : 1;

            if ((now + length) % cycle == 0)
                for (++arrived, finished += 2; arrived < finished;)
                    std::this_thread::yield();
        }
    };

    std::thread reading (run, listener.id, 256);
    run (sender.id, 512);
    reading.join();
    EXPECT_EQ (wrong, 0);
}
