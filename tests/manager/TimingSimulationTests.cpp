// SPDX-License-Identifier: GPL-3.0-or-later
#include "HostSimulator.h"

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

namespace
{

using Hosts = std::vector<Host>;

// clang-format off
const Hosts kRegular {
    { 64, 64, 64, Host::senderFirst }, { 64, 64, 64, Host::listenerFirst }, { 1024, 1024, 1024, Host::senderFirst },
    { 1024, 1024, 1024, Host::listenerFirst }, { 4096, 4096, 4096, Host::senderFirst }, { 4096, 4096, 4096, Host::listenerFirst } };
const Hosts kSubBlocks {
    { 1024, 1024, 256, Host::listenerFirst }, { 1024, 256, 1024, Host::listenerFirst }, { 2048, 2048, 64, Host::listenerFirst },
    { 512, 512, 128, Host::listenerFirst }, { 4096, 4096, 512, Host::listenerFirst }, { 4096, 512, 4096, Host::drawn } };
const Hosts kDrawn { { 64, 64, 64, Host::drawn }, { 256, 256, 256, Host::drawn } };
const Hosts kAhead {
    { 64, 64, 64, Host::listenerFirst, 0, 2048 }, { 256, 256, 256, Host::drawn, 0, 3584 }, { 512, 512, 512, Host::mixed, 0, 24000 } };
const Hosts kFlushing {
    { 1024, 1024, 128, Host::listenerFirst, 0, 2048, false, false, true }, { 512, 512, 256, Host::listenerFirst, 0, 3584, false, false, true },
    { 512, 0, 512, Host::drawn, 0, 3584, false, false, true }, { 256, 256, 256, Host::senderFirst, -3584, 0, false, false, true } };
const Hosts kFarBehind {
    { 512, 512, 512, Host::listenerFirst, -24000, -2000 }, { 512, 512, 512, Host::senderFirst, -8000, 0 },
    { 256, 256, 256, Host::mixed, -9000, -3000 }, { 1024, 1024, 1024, Host::listenerFirst, -6000, -1000 } };
const Hosts kBeyondTheSlack { { 8192, 8192, 8192, Host::senderFirst }, { 8192, 8192, 8192, Host::listenerFirst } };
// clang-format on

Hosts inside (Hosts hosts)
{
    for (auto& host : hosts)
        host.jumpsInside = true;

    return hosts;
}

Hosts operator+ (Hosts hosts, const Hosts& more)
{
    hosts.insert (hosts.end(), more.begin(), more.end());
    return hosts;
}

Step play (std::int64_t from, int samples, Step::Missing missing = Step::nobody, int lead = 0)
{
    return { Step::moves, from, samples, missing, Step::nothing, 0, 1, lead };
}

Step loop (int lap, int laps, Step::Act act = Step::nothing)
{
    return { Step::moves, 20000, lap * laps, Step::nobody, act, lap };
}

Step rest (Step::Transport transport, int samples, Step::Missing missing = Step::nobody, int lead = 0,
           Step::Act act = Step::nothing)
{
    return { transport, 0, samples, missing, act, 0, 1, lead };
}

/** The sender's stream runs for long before the link is made, while nothing plays. */
Story linkedLate (Story then)
{
    then.insert (then.begin(), { rest (Step::stopped, 20480, Step::listener, 0, Step::cut),
                                 rest (Step::stopped, 20480, Step::nobody, 0, Step::link) });
    return then;
}

struct Case
{
    const char* name;
    Hosts hosts;
    Story (*story) (int cycle);
};

void PrintTo (const Case& row, std::ostream* out)
{
    *out << row.name;
}

// clang-format off
const Case kCases[] = {
    // A passage is played again after the audio of its first pass left the ring, and one side missed a little.
    { "BypassBeforeASeekBack", kRegular + kSubBlocks, [] (int cycle)
      { return Story { play (0, 122880), play (122880, cycle, Step::listener), play (0, 122880) }; } },
    { "BypassWithinASecondPass", kRegular + kSubBlocks, [] (int cycle)
      { return Story { play (0, 122880), play (0, 20480), play (20480, cycle, Step::listener), play (20480 + cycle, 90000) }; } },
    { "SeeksBackInAHostThatRendersAhead", kAhead + kFlushing, [] (int)
      { return Story { play (0, 120000), play (0, 120000), play (0, 120000), play (5000, 50000), play (1000, 120000) }; } },
    { "SeeksBackAsTheDistanceChanges", kRegular, [] (int)
      { return Story { play (0, 122880), play (0, 122880, Step::nobody, -3000), play (0, 122880, Step::nobody, 3000), play (0, 122880) }; } },

    { "ListenerMoreThanTheSlackAhead", kFarBehind, [] (int)
      { return Story { play (0, 120000), play (0, 90000), play (50000, 60000), loop (48000, 4), play (48000, 60000) }; } },
    { "BlocksLongerThanTheSlack", kBeyondTheSlack, [] (int) { return Story { play (0, 163840), play (0, 163840) }; } },

    // One lap looks like another.
    { "LoopsThatBothGoThrough", kRegular + kSubBlocks + inside (kSubBlocks) + kAhead, [] (int)
      { return Story { play (0, 20000), loop (12345, 10), play (32345, 30000), loop (4800, 20), loop (2222, 40), play (64567, 60000) }; } },
    { "LiveLoopFromTheStart", kRegular + inside (kSubBlocks), [] (int)
      { return linkedLate ({ rest (Step::stands, 4096), loop (12345, 10), play (0, 60000) }); } },
    { "LinkedInALiveLoop", kSubBlocks + inside (kSubBlocks), [] (int)
      { return Story { loop (12345, 10, Step::cut), loop (12345, 10, Step::link), play (32345, 30000) }; } },
    { "LinkedInAShortLiveLoop", kDrawn + inside (kDrawn), [] (int)
      { return Story { loop (2222, 20, Step::cut), loop (2222, 20, Step::link), play (22222, 30000) }; } },

    // No label tells that somebody is away, or that the distance wandered off and came back.
    { "AbsenceAfterALongOne", kRegular, [] (int)
      { return Story { play (0, 40960), play (40960, 351046, Step::listener), play (392006, 40960), rest (Step::stopped, 40000),
                       rest (Step::stopped, 32768, Step::sender), rest (Step::stopped, 60000) }; } },
    { "ExcursionsOfTheDistance", kRegular, [] (int cycle)
      { return Story { rest (Step::absent, 40960), rest (Step::absent, 8 * cycle, Step::nobody, 8 * cycle), rest (Step::absent, 60000),
                       rest (Step::absent, 40 * cycle, Step::nobody, -12 * cycle), rest (Step::absent, 60000) }; } },

    // Playback starts with the position standing, and one track gets its material earlier from then on.
    { "StartWithTheListenersTrackEarlier", kRegular, [] (int)
      { return Story { rest (Step::stopped, 20480), rest (Step::stands, 2963, Step::listener, -2963), rest (Step::stands, 4096, Step::nobody, -2963),
                       play (0, 60000, Step::nobody, -2963) }; } },
    { "StartWithTheSendersTrackEarlier", kRegular, [] (int)
      { return Story { rest (Step::stopped, 20480), rest (Step::stands, 3000, Step::sender, 3000), rest (Step::stands, 4096, Step::nobody, 3000),
                       play (0, 60000, Step::nobody, 3000) }; } },
    { "StartOfWhichTheListenerHearsLate", kRegular, [] (int) { return linkedLate ({ rest (Step::standsUnheard, 4096), play (0, 60000) }); } },
    { "StartOfWhichTheSenderHearsLate", kRegular, [] (int) { return linkedLate ({ rest (Step::standsMutely, 4096), play (0, 60000) }); } },
};
// clang-format on

class TimingStoryTest : public testing::TestWithParam<Case>
{
};

TEST_P (TimingStoryTest, HoldsOnItsHosts)
{
    for (const auto& host : GetParam().hosts)
    {
        const auto verdict = simulate (host, GetParam().story (host.cycle));
        EXPECT_TRUE (verdict.holds()) << verdict;
        EXPECT_GT (verdict.exact, 0) << host;
    }
}

INSTANTIATE_TEST_SUITE_P (Stories, TimingStoryTest, testing::ValuesIn (kCases),
                          [] (const auto& row) { return std::string (row.param.name); });

/** A reader that knows the truth holds, and each one that departs from it is found out. */
TEST (HostSimulatorTest, FindsOutAWrongReader)
{
    const Story story { play (0, 40000), play (0, 20000, Step::sender), loop (12000, 5) };
    const auto judge = [&story] (Moment (*reader) (Moment)) { return simulate (kRegular[3], story, 1, reader); };

    EXPECT_EQ (judge ([] (Moment moment) { return moment; }).exact, 120000 - 4096);
    EXPECT_GT (judge ([] (Moment moment) { return moment + 1; }).wrong, 110000);
    EXPECT_EQ (judge ([] (Moment moment) { return moment == 30000 ? 29999 : moment; }).wrong, 1);
    EXPECT_GT (judge ([] (Moment moment) { return moment > 100000 ? moment - 12000 : moment; }).wrong, 15000);
    EXPECT_EQ (judge ([] (Moment moment) { return moment == 30000 ? kSilence : moment; }).silent, 1);
    EXPECT_GT (judge ([] (Moment) { return kSilence; }).silent, 60000);
    EXPECT_EQ (
        judge ([] (Moment moment) { return moment < 40000 || moment >= 60000 ? moment : kSilence; }).rightlySilent,
        20000);
}

/** A host and a story that a seed draws.

    Left out is what nobody can know:
    - who comes new into a loop that is shorter than the distance between the tracks wanders;
    - who comes new just at a jump, and far ahead of the sender, or where blocks of other lengths hide the jump;
    - whether something was missed that began at the very label that follows;
    - where a label lies that may be one off, or that runs at another speed, if no blocks of both sides begin together. */
struct Draw
{
    explicit Draw (unsigned seed) : random (seed)
    {
        drawHost();
        tell();
    }

    int draw (int lowest, int highest) { return std::uniform_int_distribution<int> (lowest, highest) (random); }
    bool oneIn (int count) { return draw (1, count) == 1; }

    template <typename T>
    T any (std::initializer_list<T> choices)
    {
        return choices.begin()[draw (0, static_cast<int> (choices.size()) - 1)];
    }

    int length (int shortest, int longest)   // short ones are as likely as long ones
    {
        const auto drawn = shortest * std::pow (static_cast<double> (longest) / shortest, draw (0, 1000) / 1000.0);
        return host.jitters ? static_cast<int> (drawn) / 64 * 64 + 64 : static_cast<int> (drawn);
    }

    void drawHost()
    {
        const auto block = any ({ 16, 32, 64, 128, 256, 512, 1024, 2048, 4096, 441, 0 });
        const auto part = block % 8 == 0 ? block / any ({ 1, 1, 4, 8 }) : block;
        host.cycle = block * (block <= 2048 ? any ({ 1, 1, 1, 2 }) : 1);
        host.senderBlock = any ({ part, block });
        host.listenerBlock = host.senderBlock == part ? any ({ part, block }) : part;
        host.order = any ({ Host::senderFirst, Host::listenerFirst, Host::drawn, Host::mixed });
        const auto lead = any ({ draw (100, 2048), 2048, 3584, 24000 });
        const auto tracks = draw (0, 5);   // neither is rendered ahead, the sender's, the listener's or both
        host.highestLead = tracks == 1 || tracks == 3 ? lead : 0;
        host.lowestLead = tracks == 2 || tracks == 3 ? -lead : 0;
        host.jumpsInside = oneIn (4);
        host.jitters = block >= 64 && ! host.jumpsInside && oneIn (4) && host.isRegular();
        mayMiss = ! host.jitters;

        // Where distances wander far, what is missed is told only by what goes on plainly around it.
        if (host.lowestLead < host.highestLead || host.longestBlock() > 2048 ||
            (host.jumpsInside && ! host.isAligned()))
            fence = 2 * host.width() + host.longestBlocks() + 8192;

        mayRest = host.isRegular() && fence == 0;
    }

    void go (int samples, Step::Missing missing = Step::nobody, Step::Act act = Step::nothing, double speed = 1)
    {
        story.push_back ({ Step::moves, position, samples, missing, act, 0, speed });
        position += std::llround (samples * speed);
    }

    void rest (Step::Transport transport, int samples, Step::Missing missing = Step::nobody,
               Step::Act act = Step::nothing, int lead = 0)
    {
        story.push_back ({ transport, position, samples, missing, act, 0, 1, lead });
    }

    /** Goes round whole laps, and on from where they begin. */
    void loop (int lap, int laps, Step::Act act = Step::nothing)
    {
        const auto isShort = lap <= host.width();
        isShort ? go (2 * host.width() + 8192) : void();
        story.push_back ({ Step::moves, position, lap * laps, Step::nobody, act, lap });
        isShort ? go (2 * host.width() + 8192) : void();
    }

    void seek()
    {
        position = oneIn (3) ? draw (0, 1 << 20) : oneIn (2) ? start : draw (0, static_cast<int> (position));
    }
    void seekUnfenced() { fence == 0 && oneIn (3) ? seek() : void(); }
    void goFenced() { fence > 0 ? go (fence) : void(); }

    void tell()
    {
        const auto isLate = mayMiss && oneIn (4);

        if (isLate || (mayRest && oneIn (3)))
            rest (any ({ Step::stopped, Step::absent }), length (100, 20000), Step::nobody,
                  isLate ? Step::cut : Step::nothing);

        if (mayRest && oneIn (3))
            rest (any ({ Step::stopped, Step::absent }), length (100, 20000), Step::nobody,
                  isLate ? Step::link : Step::nothing);

        if (mayRest && oneIn (3))
            rest (any ({ Step::stands, Step::standsMutely, Step::standsUnheard }), any ({ 3000, 4096, 5000 }));

        start = position;
        go (length (5000, 50000) + 2 * host.width() + fence, Step::nobody, isLate ? Step::link : Step::nothing);

        for (auto scenes = draw (1, 4); scenes > 0; --scenes)
            tellScene (draw (0, mayMiss ? 9 : 4), any ({ Step::sender, Step::listener }));

        go (12000 + fence);
    }

    void tellScene (int scene, Step::Missing who)
    {
        if (! mayRest && (scene == 3 || scene == 4 || scene == 7))
            scene = 0;

        const auto still = any ({ Step::stands, Step::standsMutely, Step::standsUnheard, Step::stopped, Step::absent });

        if (scene <= 1)
        {
            seek();
            go (length (1000, oneIn (3) ? 100000 : 30000) + fence);
        }
        else if (scene == 2)
            oneIn (20) ? loop (length (30000, 960000), 2)
                       : loop (length (std::max (100, host.width() + host.longestBlocks()), 60000), draw (2, 5));
        else if (scene == 3)
        {
            go (4096 + 2 * host.longestBlocks() + fence);
            go (length (1000, 20000), Step::nobody, Step::nothing, draw (500, 2000) / 1000.0);
            go (1000 + fence);
        }
        else if (scene == 4)
        {
            const auto whole = [this] (int most) { return draw (1, most) * host.longestBlock(); };
            const auto lead = host.isSteady() && oneIn (2) ? draw (-12, 12) * host.longestBlock() : 0;
            rest (still, lead != 0 ? whole (20) : length (500, 30000));
            lead != 0 ? rest (still, whole (20), Step::nobody, Step::nothing, lead) : void();
            lead != 0 ? rest (still, whole (20) + 9216) : void();
        }
        else if (scene == 5)
        {
            goFenced();
            go (oneIn (2) && host.cycle > 0 ? host.cycle : length (50, 90000), who);
            seekUnfenced();
            go (length (1000, 30000) + fence);
        }
        else if (scene == 6 && fence == 0)
        {
            const auto lap = length (host.width() + host.longestBlocks() + 1000, 60000),
                       missed = length (64, lap - 100);
            const auto isCut = oneIn (3);
            loop (lap, 2, isCut ? Step::cut : Step::nothing);

            if (! isCut)
            {
                go (missed, who);
                go (lap - missed);
                position -= lap;
            }

            loop (lap, 3, isCut ? Step::link : Step::nothing);
        }
        else if (scene == 7)
        {
            rest (still, length (5000, 10000));
            rest (still, length (50, 40000), who);
            rest (still, length (5000, 30000));
        }
        else
        {
            const auto first = any ({ Step::link, Step::replace, Step::reload, Step::leave, Step::cut });
            goFenced();
            seekUnfenced();
            go (length (1000, 20000) + fence, Step::nobody, first);

            if (first == Step::leave || first == Step::cut)
                go (length (1000, 20000) + fence, Step::nobody, first == Step::leave ? Step::replace : Step::link);
        }
    }

    std::mt19937 random;
    Host host;
    Story story;
    std::int64_t position = 0, start = 0;
    bool mayMiss = true, mayRest = true;
    int fence = 0;   // samples of plain going on around what is missed
};

int setting (const char* name)
{
    const auto* const text = std::getenv (name);
    return text != nullptr ? std::atoi (text) : 0;
}

/** DUO_SOAK_SECONDS tells for how long to try seeds that nobody tried, DUO_TIMING_SEED which one alone. */
TEST (TimingSoakTest, HoldsOnHostsAndInStoriesDrawnAtRandom)
{
    const auto only = static_cast<unsigned> (setting ("DUO_TIMING_SEED"));
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds (setting ("DUO_SOAK_SECONDS"));
    const auto isSoak = only == 0 && setting ("DUO_SOAK_SECONDS") > 0;
    const auto first = only > 0 ? only : isSoak ? std::random_device {}() : 1u, last = first + (only > 0 ? 1 : 1000);

    for (auto seed = first, faults = 0u; faults < 5 && (isSoak ? std::chrono::steady_clock::now() < end : seed != last);
         ++seed)
    {
        const Draw draw (seed);
        const auto verdict = simulate (draw.host, draw.story, seed);
        EXPECT_TRUE (verdict.holds()) << "DUO_TIMING_SEED=" << seed
                                      << " plays it again: " << testing::PrintToString (draw.story) << "\n"
                                      << verdict;
        faults += verdict.holds() ? 0 : 1;
    }
}

}   // namespace
