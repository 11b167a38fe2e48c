// SPDX-License-Identifier: GPL-3.0-or-later
#include "HostSimulator.h"

#include "TestPod.h"

#include <cmath>
#include <map>
#include <optional>
#include <random>
#include <sstream>

using namespace baylink;

namespace
{

constexpr int kRing = 65536, kSettling = 8192, kLongestBlock = 16384;   // samples

/** The moment m sounds as m + 1 on the left and -m - 1 on the right, which a float holds exactly. From 0 on, made once. */
std::vector<float> material[2];

/** @returns no moment, and no silence either, for samples that do not belong together. */
Moment momentOf (float left, float right)
{
    return left == -right ? static_cast<Moment> (left) - 1 : kSilence - 1;
}

bool isLabelled (const Step& step, bool sends)
{
    return step.transport <= Step::stands || step.transport == (sends ? Step::standsUnheard : Step::standsMutely);
}

/** What holds while nothing proves better: nothing is off, or all by the same, or anything goes. */
enum class Claim
{
    exact,
    constant,
    none
};

/** Material over which neither side missed anything. */
struct Segment
{
    Claim claim = Claim::none;
    Moment missedFrom = 0;   // until the segment begins
    bool settles = true;     // there was something to notice
    bool isProven = false;
    std::optional<Moment> shift {};   // by which all is off
};

/** One side's way through the material. */
struct Side
{
    Moment cursor = 0, calledUntil = 0;
    Moment movedUntil = -1;          // the end of the last block, if its position moved
    std::vector<Moment> proofs {};   // starts of blocks whose position had moved from one block to the next
    std::int64_t label = 0;          // the last that there was
};

class Simulation
{
public:
    Simulation (const Host& hostToPlay, const Story& story, unsigned seed,
                const std::function<Moment (Moment)>& givenReader) :
        host (hostToPlay),
        reader (givenReader), random (seed), wandered (draw (host.lowestLead, host.highestLead))
    {
        for (const auto& next : story)
        {
            if (host.flushes && ! steps.empty() && next.from != positionAt (end))
                end += host.width() + host.longestBlocks();   // room for what is thrown away

            steps.push_back (next);
            begins.push_back (end);
            end += next.samples;
        }

        places.resize (static_cast<std::size_t> (end + (1 << 17)));

        while (material[0].size() < places.size())
        {
            material[0].push_back (static_cast<float> (material[0].size() + 1));
            material[1].push_back (-material[0].back());
        }
    }

    Verdict run()
    {
        load();
        act();

        while (now < end)
        {
            runCycle();

            while (step + 1 < steps.size() && now >= begins[step] + steps[step].samples)
            {
                if (now < begins[++step])
                    flush();

                act();
            }
        }

        return verdict;
    }

private:
    using Segments = std::map<Moment, Segment>;

    struct Sample
    {
        Moment expected = 0, got = 0;
        std::int64_t index = 0;   // in all that the listener asked for
    };

    int draw (int lowest, int highest) { return std::uniform_int_distribution<int> (lowest, highest) (random); }
    int orDrawn (int length) { return length > 0 ? length : draw (1, 4096); }

    // The material.

    const Step& at (Moment moment) const
    {
        return *std::prev (steps.end() - (begins.end() - std::upper_bound (begins.begin(), begins.end(), moment)));
    }

    Moment sinceBegin (Moment moment) const
    {
        return moment - begins[static_cast<std::size_t> (&at (moment) - steps.data())];
    }

    std::int64_t positionAt (Moment moment) const
    {
        const auto& here = at (moment);
        const auto gone = here.transport == Step::moves ? sinceBegin (moment) : 0;
        return here.from + (here.lap > 0 ? gone % here.lap : std::llround (static_cast<double> (gone) * here.speed));
    }

    std::int64_t labelAt (Moment moment) const
    {
        const auto jitters = host.jitters && at (moment).transport == Step::moves;
        return positionAt (moment) +
               (jitters ? static_cast<int> (static_cast<unsigned> (moment) * 2654435761u >> 20) % 3 - 1 : 0);
    }

    /** @returns where a block ends at the latest that begins at `moment`. */
    Moment nextJump (Moment moment) const
    {
        const auto& here = at (moment);
        const auto gone = sinceBegin (moment);
        const auto lapEnd = here.lap > 0 ? (gone / here.lap + 1) * here.lap : kLongestBlock + gone;
        return moment - gone +
               (host.jumpsInside      ? kLongestBlock + gone
                : gone < here.samples ? std::min<Moment> (lapEnd, here.samples)
                                      : lapEnd);
    }

    /** @returns false for laps of which blocks hide the most. */
    bool moves (const Step& here) const
    {
        return here.transport == Step::moves && (here.lap == 0 || here.lap > host.longestBlock() || ! host.jumpsInside);
    }

    /** @returns true when positions stand, or are missing, all the way. */
    bool isStill (Moment first, Moment last) const
    {
        return std::none_of (&at (first), &at (last) + 1, [this] (const Step& each) { return moves (each); });
    }

    /** @returns true when they do so somewhere, or in a block that began before. */
    bool isVague (Moment first, Moment last) const
    {
        const auto begin = std::max<Moment> (0, first - (host.jumpsInside ? host.longestBlock() : 0));
        return ! std::all_of (&at (begin), &at (last) + 1, [this] (const Step& each) { return moves (each); });
    }

    // What happens in the session.

    /** A session is loaded; the link is there before the first block. */
    void load()
    {
        now = sending.cursor = std::max (sending.cursor, listening.cursor);
        sender.reset();
        listener.reset();
        listener.emplace (&manager.emplace());
        listening = { now, now };
        inputs.clear();
        segments.clear();
        segments[now];
        openSender();
        makeLink();
    }

    void openSender()
    {
        sender.reset();
        manager->openStream (sender.emplace (&*manager).id, 2);
        sending = { sending.cursor, sending.cursor };
        streamStart = sent;
    }

    void makeLink()
    {
        listener->choose (kNoPod);
        listener->choose (sender->id);
        isLinked = true;
        linkedAt = listening.cursor;
        seenFrom = std::min (linkedAt, sending.cursor) - 1;
        lastEvent = numInputs();
        const auto together =
            sent == streamStart && sending.cursor == linkedAt && host.senderBlock >= host.cycle && host.cycle > 0;

        for (auto& segment : segments)
            segment.second = { ! host.isSteady() ? Claim::none
                               : together        ? Claim::exact
                                                 : Claim::constant,
                               segment.first, false };
    }

    void act()
    {
        const auto& next = steps[step];
        isLinked = isLinked && next.act != Step::cut && next.act != Step::leave;

        if (next.act == Step::reload)
            load();
        else if (next.act == Step::leave)
            sender.reset();
        else if (next.act == Step::cut)
            listener->choose (kNoPod);

        if (next.act == Step::replace)
        {
            openSender();
            part (sending.cursor, sending.cursor, Claim::none);
        }

        if (next.act == Step::replace || next.act == Step::link)
            makeLink();

        const auto leadBefore = step > 0 ? steps[step - 1].lead : 0;

        if (! moves (next) && (next.lead != leadBefore || ! host.isSteady()))
            part (now, now, next.lead != 0 ? Claim::none : Claim::exact, leadBefore != 0 ? 2 : 1);
    }

    /** What was rendered ahead is thrown away. */
    void flush()
    {
        now = sending.cursor = listening.cursor = sending.calledUntil = listening.calledUntil = begins[step];
        wandered = draw (host.lowestLead, host.highestLead);
        part (now, now, Claim::none);
    }

    /** Something was missed, and from `moment` on both sides get the same again.
        @param back how many segments ago all was as it is to be now */
    void part (Moment missedFrom, Moment moment, Claim claim, int back = 1)
    {
        auto before = segmentAt (moment);
        before = back > 1 && before != segments.begin() ? std::prev (before) : before;
        Segment segment { host.isSteady() ? claim : Claim::none, missedFrom };

        if (segment.claim == Claim::exact && ! isProven (before))
        {
            segment.claim = before->second.claim;
            segment.shift = before->second.shift;
        }

        segments[moment] = segment;
        lastEvent = numInputs();
    }

    // What the host calls.

    void runCycle()
    {
        const auto cycleEnd = std::min ({ now + orDrawn (host.cycle), nextJump (now), end });

        // Mostly, it holds for long enough that the other track can catch up.
        if (draw (0, host.width() / Host::longest (host.cycle)) == 0)
            wandered = draw (host.lowestLead, host.highestLead);

        const auto lead = steps[step].lead + wandered;
        const Moment goals[] = { cycleEnd + std::max (0, -lead), cycleEnd + std::max (0, lead) };
        auto sends = host.order == Host::senderFirst || (host.order != Host::listenerFirst && draw (0, 1) == 1);

        // Who waits for the other may as well be away, where no positions move.
        if (! moves (steps[step]) && (listening.cursor >= goals[0] || sending.cursor >= goals[1]))
            lastEvent = numInputs();

        while (listening.cursor < goals[0] || sending.cursor < goals[1])
        {
            sends = host.order == Host::mixed ? draw (0, 1) == 1 : sends;
            sends = ((sends ? sending : listening).cursor < goals[sends]) == sends;
            call (sends, goals[sends]);
        }

        now = cycleEnd;
    }

    void call (bool sends, Moment goal)
    {
        auto& side = sends ? sending : listening;
        const auto& here = at (side.cursor);
        const auto whole = side.cursor + orDrawn (sends ? host.senderBlock : host.listenerBlock);
        const auto last =
            std::min ({ whole, nextJump (side.cursor), host.lowestLead == host.highestLead ? goal : whole });

        if (here.missing != (sends ? Step::sender : Step::listener) && (sender || ! sends))
        {
            if (const auto missed = side.cursor - side.calledUntil; missed > 0)
                part (side.calledUntil, side.cursor,
                      host.isRegular() && missed > 2 * host.longestBlocks() ? Claim::exact : Claim::none);

            if (segmentAt (last - 1)->first >= side.cursor)
                lastEvent = numInputs();

            const auto label = isLabelled (here, sends) ? labelAt (side.cursor) : side.label;

            if (moves (here) && side.movedUntil == side.cursor && label != side.label)
                side.proofs.push_back (side.cursor);

            side.label = label;
            side.calledUntil = last;
            side.movedUntil = moves (here) ? last : -1;
            sends ? send (static_cast<int> (last - side.cursor), here)
                  : listen (static_cast<int> (last - side.cursor), here);
        }

        side.cursor = last;
    }

    void send (int length, const Step& here)
    {
        const float* const channels[] = { &material[0][static_cast<std::size_t> (sending.cursor)],
                                          &material[1][static_cast<std::size_t> (sending.cursor)] };

        for (int i = 0; i < length; ++i)
            places[static_cast<std::size_t> (sending.cursor + i)] = static_cast<std::int32_t> (++sent);

        if (isLabelled (here, true))
            manager->writeAudioAt (sender->id, channels, length, sending.label);
        else
            manager->writeAudio (sender->id, channels, length);
    }

    void listen (int length, const Step& here)
    {
        float* const channels[] = { left.data(), right.data() };
        const auto asked = numInputs();
        std::fill_n (channels[0], length, 0.0f);
        std::fill_n (channels[1], length, 0.0f);

        for (int i = 0; i < length; ++i)
            inputs.push_back (listening.cursor + i);

        if (isLinked)
            manager->setPlaying (listener->id, here.transport == Step::absent || isLabelled (here, false));

        if (isLinked && here.transport == Step::absent)
            manager->readAudio (listener->id, channels, length, sender->id);
        else if (isLinked)
            manager->readAudioAt (listener->id, channels, length, sender->id, listening.label);

        for (auto i = static_cast<int> (std::max<std::int64_t> (0, kMatchedLatency - asked)); i < length; ++i)
        {
            const auto expected = inputs[static_cast<std::size_t> (asked + i - kMatchedLatency)];
            const auto got = reader
                                 ? reader (expected)
                                 : momentOf (left[static_cast<std::size_t> (i)], right[static_cast<std::size_t> (i)]);

            if (got == expected)
                ++verdict.exact;
            else
                judge ({ expected, got, asked + i });
        }
    }

    // What is heard.

    /** A sample that does not give what belongs there. */
    void judge (const Sample& sample)
    {
        const auto isThere = isLinked && placeOf (sample.expected) > std::max (streamStart, sent - kRing);

        if (sample.got == kSilence && (! isThere || isSettling (sample)))
            ++verdict.rightlySilent;
        else if (mayBeOff (sample))
            ++verdict.excused;
        else
        {
            ++(sample.got == kSilence ? verdict.silent : verdict.wrong);
            verdict.firstFault = verdict.firstFault.empty() ? describe (sample) : verdict.firstFault;
        }
    }

    bool isSettling (const Sample& sample) const
    {
        return sample.index < lastEvent + kSettling + host.highestLead - host.lowestLead;
    }

    /** @returns true where nobody can know that a sample does not belong there. */
    bool mayBeOff (const Sample& sample)
    {
        const auto here = segmentAt (sample.expected), next = std::next (here);
        auto& segment = here->second;
        const auto hidden = host.jumpsInside ? host.longestBlock() : 0;   // of the end of standing, by a block

        if (sample.got < kSilence)
            return false;

        if (here->first < segmentAt (linkedAt)->first)
            return true;   // a link cannot know what was missed before it

        // Who notices an absence by the labels behind it cannot know where it was among those that stand.
        if (isVague (sample.expected, sample.expected) &&
            ((segment.claim == Claim::none &&
              isStill (here->first, std::max (here->first, sample.expected - hidden))) ||
             (next != segments.end() && next->second.claim == Claim::none &&
              isStill (sample.expected, next->second.missedFrom - 1))))
            return true;

        if (isProven (here) ||
            ! isVague (std::max (here->first, seenFrom), std::max (sending.cursor, listening.cursor) - 1))
            return false;

        if (segment.claim != Claim::constant || (segment.settles && isSettling (sample)))
            return segment.claim == Claim::none || (segment.settles && isSettling (sample));

        if (sample.got == kSilence || placeOf (sample.expected) == 0)
            return true;

        const auto off = placeOf (sample.got) - placeOf (sample.expected);
        return segment.shift.value_or (off) == off &&
               std::abs (*(segment.shift = off)) <= host.width() + host.longestBlocks();
    }

    /** @returns true once labels moved on both sides, and the sender's as far as the listener's. */
    bool isProven (Segments::iterator here)
    {
        const auto heard =
            std::lower_bound (listening.proofs.begin(), listening.proofs.end(), std::max (here->first, linkedAt));

        if (! here->second.isProven && heard != listening.proofs.end())
        {
            const auto laid = std::lower_bound (sending.proofs.begin(), sending.proofs.end(), *heard);
            here->second.isProven = laid != sending.proofs.end() && segmentAt (*laid) == here;
        }

        return here->second.isProven;
    }

    std::string describe (const Sample& sample)
    {
        std::ostringstream text;
        text << (sample.got == kSilence ? "Silent" : "Wrong") << " at sample " << sample.index
             << " of the listener, in a block of " << listening.calledUntil - listening.cursor << " labelled "
             << listening.label << ", " << sample.index - lastEvent << " after the last event\n  It hears "
             << at (listening.cursor) << ", expects moment " << sample.expected << " of " << at (sample.expected)
             << ", sent as number " << placeOf (sample.expected) - streamStart << " of " << sent - streamStart;

        if (sample.got != kSilence)
            text << "\n  Got moment " << sample.got << " of " << at (sample.got) << ", " << sample.expected - sample.got
                 << " earlier";

        text << "\n  Host: " << host;
        return text.str();
    }

    Segments::iterator segmentAt (Moment moment)
    {
        const auto next = segments.upper_bound (moment);
        return next == segments.begin() ? next : std::prev (next);
    }

    std::int64_t placeOf (Moment moment) const { return places[static_cast<std::size_t> (moment)]; }
    std::int64_t numInputs() const { return static_cast<std::int64_t> (inputs.size()); }

    const Host host;
    const std::function<Moment (Moment)>& reader;
    std::mt19937 random;
    int wandered;   // the lead of now
    std::vector<Step> steps;
    std::vector<Moment> begins;   // of the steps
    Moment end = 0, now = 0;      // of the story; the host's clock
    std::size_t step = 0;

    std::optional<PodManager> manager;
    std::optional<TestPod> sender, listener;
    bool isLinked = false;
    Moment linkedAt = 0, seenFrom = 0;   // the listener, and the sender as well
    Side sending, listening;

    std::vector<std::int32_t> places;   // by moment: its number in all that was ever sent, from 1; 0 where it was not
    std::vector<Moment> inputs;         // that the listener got
    std::int64_t sent = 0, streamStart = 0;
    Segments segments;
    std::int64_t lastEvent = 0;   // as a number of inputs
    std::vector<float> left = std::vector<float> (kLongestBlock), right = left;
    Verdict verdict;
};

}   // namespace

Verdict simulate (const Host& host, const Story& story, unsigned seed, const std::function<Moment (Moment)>& reader)
{
    return Simulation (host, story, seed, reader).run();
}

std::ostream& operator<< (std::ostream& out, const Host& host)
{
    static const char* const orders[] = { "sender first", "listener first", "order drawn", "order mixed" };
    return out << "cycle " << host.cycle << ", blocks " << host.senderBlock << "/" << host.listenerBlock << ", "
               << orders[host.order] << ", lead " << host.lowestLead << " to " << host.highestLead
               << (host.jumpsInside ? ", jumps inside" : "") << (host.jitters ? ", jitters" : "")
               << (host.flushes ? ", flushes" : "");
}

std::ostream& operator<< (std::ostream& out, const Step& step)
{
    static const char* const transports[] = {
        "moves", "stands", "stands mutely", "stands unheard", "stopped", "absent"
    };
    static const char* const missing[] = { "", ", no sender", ", no listener" };
    static const char* const acts[] = { "", ", cut", ", link", ", leave", ", replace", ", reload" };
    out << "{ " << transports[step.transport] << " from " << step.from << ", " << step.samples << missing[step.missing]
        << acts[step.act];
    step.lap > 0 ? out << ", lap " << step.lap : out;
    step.speed != 1 ? out << ", speed " << step.speed : out;
    return (step.lead != 0 ? out << ", lead " << step.lead : out) << " }";
}

std::ostream& operator<< (std::ostream& out, const Verdict& verdict)
{
    return out << verdict.firstFault << "\n  In all " << verdict.wrong << " wrong, " << verdict.silent << " silent, "
               << verdict.excused << " excused, " << verdict.rightlySilent << " rightly silent, " << verdict.exact
               << " exact";
}
