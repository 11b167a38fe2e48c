// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PodManager.h"
#include "TestPod.h"

#include <optional>
#include <random>

/** A host that gives a sender and a listener the same noise, cycle by cycle, and compares what the listener reads with
    its own signal 4096 samples late: equal where the sender had the sample, silent where it missed it. */
class HostRig
{
public:
    enum class Order
    {
        senderFirst,
        listenerFirst,
        drawn
    };

    struct Setup
    {
        const char* name;
        int cycle, senderBlock, listenerBlock;   // samples; 0 draws each one anew
        Order order;
    };

    explicit HostRig (const Setup& hostSetup);

    /** Follows a script of words and numbers of samples: `play FROM FOR`, `loop FROM LENGTH FOR`, `stand AT FOR`,
        `plain FOR` (no positions), `stop FOR` (the sender writes plainly, the listener repeats its last position);
        `sender`, `listener` and `reads` turn processing off (0) or on (1); `replace` loads the sender anew. */
    void run (const std::string& script);

    int compared = 0, wrong = 0;
    std::int64_t firstWrong = -1;   // host time

private:
    using Label = std::optional<std::int64_t>;

    void runBlocks (int samples, std::optional<std::int64_t> from, int loopLength, bool stopped = false);
    void replaceSender();
    void send (std::int64_t host, int length, Label label);
    void listen (std::int64_t host, int length, Label label);
    int draw (int most) { return std::uniform_int_distribution<int> (1, most) (random); }

    const Setup setup;
    baylink::PodManager manager;
    std::optional<TestSender> sender;
    TestListener listener;
    bool senderRuns = true, listenerRuns = true, listenerReads = true;
    std::int64_t now = 0, lastLabel = 0;
    std::vector<bool> sent;             // by host time
    std::vector<std::int64_t> inputs;   // host time of each of the listener's samples
    std::mt19937 random { 4096 };
};
