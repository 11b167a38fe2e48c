// SPDX-License-Identifier: GPL-3.0-or-later
#include "StreamMatcher.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace baylink
{
namespace
{

constexpr std::int64_t kForever = std::numeric_limits<std::int64_t>::max() / 4;

}   // namespace

void StreamMatcher::reset() noexcept
{
    *this = {};
}

StreamMatcher::Plan StreamMatcher::match (const Block& block, const Pod& pod) noexcept
{
    longestBlock = std::max (longestBlock, block.length);

    // An empty pod that was there first means that both began together, unless its audio keeps out too long.
    if (pod.written == 0 && asked > kMatchedLatency)
        segmentCount = 0;

    if (segmentCount == 0)
        anchor (block, pod);
    else
        follow (block, pod);

    // Only a start that the listener lived through: one who comes into the playing has missed it.
    if (! std::exchange (wasPlaying, block.playing) && block.playing && asked > 0 && ! everSure)
        anchorAtStart (block, pod);

    while (segmentCount > 1 && segments[1].start <= asked - kMatchedLatency)
        dropOldestSegment();

    const auto plan = makePlan (block.length);
    asked += block.length;
    lastWritten = pod.written;

    if (block.labelled)
    {
        lastLabel = block.label;
        hasLastLabel = true;
    }

    return plan;
}

void StreamMatcher::anchor (const Block& block, const Pod& pod) noexcept
{
    if (pod.written == 0 && asked > 0)
        return;

    auto place = guessPlace (block, pod);

    if (block.labelled && pod.runs.check (place, block.label, pod.written) != Verdict::agrees)
        place = placeInNewestRun (block, pod, Reach::foretold).value_or (place);

    holdFromStart (place, block, pod);
}

/** The host begins to play, and nothing is proven yet: senders lay no labels while it stands, so the block's place is the
    first label of theirs, or what they write next if the listener comes first. */
void StreamMatcher::anchorAtStart (const Block& block, const Pod& pod) noexcept
{
    auto start = pod.written;
    pod.runs.visitFromNewest (pod.written,
                              [&start] (const LabelRuns::Run& run)
                              {
                                  const auto follows = run.end == start;
                                  start = follows ? run.place : start;
                                  return follows;
                              });

    // Labels from long before this cycle tell of another start.
    if (start > 0 && pod.written - start <= std::max ({ block.length, pod.latestBlock, kMatchedLatency }))
        holdFromStart (start, block, pod);
}

/** Takes it that the block lies on `place`, and all before it accordingly. */
void StreamMatcher::holdFromStart (std::int64_t place, const Block& block, const Pod& pod) noexcept
{
    const auto lead = pod.written - place;
    holdAlways (place - asked);
    sure = everSure = false;
    probe.pending = false;
    agreedUntil = asked;
    lowestLead = highestLead = lead;
    noteOrder (block.length, lead);
}

/** @returns where the first block lies if no label tells. */
std::int64_t StreamMatcher::guessPlace (const Block& block, const Pod& pod) noexcept
{
    // The host cuts its cycles differently for the two, and this is the first one.
    if (block.length != pod.latestBlock && pod.written <= kMatchedLatency)
        return 0;

    // Most hosts go through their tracks in order, and the pod was there first.
    return std::max<std::int64_t> (0, pod.written - std::max (block.length, pod.latestBlock));
}

void StreamMatcher::follow (const Block& block, const Pod& pod) noexcept
{
    // A label that stands still proves nothing: the material may be moving all the same.
    const auto labelMoved = block.labelled && (! hasLastLabel || block.label != lastLabel);

    if (! labelMoved || ! judgeLabel (block, pod))
        judgeLead (block, pod, labelMoved);
}

/** @returns true when the label settled the block's place. */
bool StreamMatcher::judgeLabel (const Block& block, const Pod& pod) noexcept
{
    const auto place = asked + currentOffset();
    const auto lead = pod.written - place;
    const auto verdict = pod.runs.check (place, block.label, pod.written);

    if (verdict == Verdict::agrees)
    {
        agree ({ asked, place, block.label, lead, block.length });
        probe.pending = false;
        return true;
    }

    const auto past = probe.pending ? pod.runs.check (probe.place, probe.label, pod.written) : Verdict::open;

    if (past == Verdict::agrees)
        agree (probe);

    probe.pending = probe.pending && past == Verdict::open;

    // Where both are guesses, a place that bears the label goes before one that may come to bear it.
    const auto better = ! sure && verdict == Verdict::open && placeInNewestRun (block, pod, Reach::proven);

    if (better || verdict == Verdict::contradicts || past == Verdict::contradicts)
    {
        std::int64_t found = 0;

        if (findPlace (block, pod, sure, found))
            moveTo (found, { agreedUntil, agreedUntil + currentOffset() }, Reason::label);
        else if (sure)
            moveTo (usualPlace (block, pod), { agreedUntil, agreedUntil + currentOffset() }, Reason::label);

        return true;
    }

    if (verdict == Verdict::open && ! probe.pending)
        probe = { asked, place, block.label, lead, block.length, true };

    return false;
}

/** With no label to tell: the streams have parted if the pod flows, but at a distance that it never had. */
void StreamMatcher::judgeLead (const Block& block, const Pod& pod, bool labelMoved) noexcept
{
    const auto place = asked + currentOffset();

    if (pod.written == lastWritten || isUsual (pod.written - place, pod))
        return;

    if (labelMoved && placeInNewestRun (block, pod, Reach::foretold) == place)
        return;

    std::int64_t found = 0;

    if (! labelMoved || ! findPlace (block, pod, everSure, found))
        found = usualPlace (block, pod);

    // The pod paused: what it wrote before is heard already. Or the listener did, from this block on.
    moveTo (found, { asked, lastWritten }, Reason::lead);
}

void StreamMatcher::agree (const Probe& block) noexcept
{
    if (! everSure)
    {
        // All before was guessed.
        holdAlways (currentOffset());
        lowestLead = highestLead = block.lead;
    }

    sure = everSure = true;
    agreedUntil = block.asked + block.length;
    lowestLead = std::min (lowestLead, block.lead);
    highestLead = std::max (highestLead, block.lead);
    noteOrder (block.length, block.lead);
}

void StreamMatcher::noteOrder (int length, std::int64_t lead) noexcept
{
    lastLead = lead;
    order = lead == length ? Order::senderFirst : lead == 0 ? Order::readerFirst : Order::apart;
}

/** Lets the streams lie so that the coming block falls on `place`, from where they parted. */
void StreamMatcher::moveTo (std::int64_t place, Break parted, Reason reason) noexcept
{
    const auto offset = place - asked;
    probe.pending = false;

    if (offset == currentOffset())
        return;

    if (! sure && reason == Reason::label)
    {
        // The newest segment was a guess, or all were: the better one takes its place.
        if (segmentCount == 1 || ! everSure)
        {
            holdAlways (offset);
            return;
        }

        --segmentCount;
        parted = newestBreak;
        segments[segmentCount - 1].end = kForever;

        if (offset == currentOffset())
            return;
    }

    if (segmentCount == kMaxStretches)
        dropOldestSegment();

    auto& former = segments[segmentCount - 1];
    const auto podPaused = offset < former.offset;
    former.end = podPaused ? parted.place - former.offset : parted.asked;
    segments[segmentCount++] = { podPaused ? parted.place - offset : parted.asked, kForever, offset };
    newestBreak = parted;
    sure = false;
}

void StreamMatcher::holdAlways (std::int64_t offset) noexcept
{
    segments[0] = { -kForever, kForever, offset };
    segmentCount = 1;
}

void StreamMatcher::dropOldestSegment() noexcept
{
    std::copy (segments.begin() + 1, segments.begin() + segmentCount, segments.begin());
    --segmentCount;
}

/** @returns false for a lead that differs from all sure ones by more than block lengths explain. */
bool StreamMatcher::isUsual (std::int64_t lead, const Pod& pod) const noexcept
{
    const auto tolerance = 2 * (static_cast<std::int64_t> (longestBlock) + pod.longestBlock);
    return lead >= lowestLead - tolerance && lead <= highestLead + tolerance;
}

std::int64_t StreamMatcher::usualPlace (const Block& block, const Pod& pod) const noexcept
{
    const auto lead = order == Order::senderFirst ? block.length : order == Order::readerFirst ? 0 : lastLead;
    return std::max<std::int64_t> (0, pod.written - lead);
}

/** @returns where the run that the sender is laying bears the block's label. */
std::optional<std::int64_t> StreamMatcher::placeInNewestRun (const Block& block, const Pod& pod, Reach reach) noexcept
{
    std::optional<std::int64_t> place;
    pod.runs.visitFromNewest (pod.written,
                              [&] (const LabelRuns::Run& run)
                              {
                                  const auto wanted = run.placeOf (block.label);

                                  const auto furthest =
                                      reach == Reach::proven ? run.lastBlock : run.end + kMatchedLatency;
                                  const auto moves = reach == Reach::foretold || run.lastBlock > run.place;

                                  if (run.end == pod.written && moves && wanted >= run.place && wanted <= furthest)
                                      place = wanted;

                                  return false;
                              });
    return place;
}

/** Looks for the block's label in the pod: the newest place that bears it or, among usual leads only, the one whose
    lead is nearest to the sure ones. */
bool StreamMatcher::findPlace (const Block& block, const Pod& pod, bool usualOnly, std::int64_t& place) const noexcept
{
    auto least = kForever;   // distance of the best lead from the sure ones
    const auto consider = [&] (std::int64_t candidate)
    {
        const auto lead = pod.written - candidate;
        const auto distance = usualOnly ? std::max<std::int64_t> ({ 0, lowestLead - lead, lead - highestLead }) : 0;

        if (distance < least && (! usualOnly || isUsual (lead, pod)))
        {
            least = distance;
            place = candidate;
        }
    };

    auto foretold = -kForever;
    pod.runs.visitFromNewest (pod.written,
                              [&] (const LabelRuns::Run& run)
                              {
                                  const auto candidate = run.placeOf (block.label);
                                  const auto known = run.end == pod.written ? run.end : run.lastBlock;

                                  if (candidate >= run.place && candidate <= known)
                                      consider (candidate);
                                  else if (run.end == pod.written && candidate > run.end &&
                                           candidate - run.end <= kMatchedLatency)
                                      foretold = candidate;

                                  return least > 0;
                              });

    if (least == kForever && foretold != -kForever)
        consider (foretold);

    return least < kForever;
}

StreamMatcher::Plan StreamMatcher::makePlan (int length) const noexcept
{
    Plan plan;
    const auto first = asked - kMatchedLatency;

    for (int i = 0; i < segmentCount; ++i)
    {
        const auto& segment = segments[i];
        const auto start = std::max (first, segment.start);
        const auto end = std::min (first + length, segment.end);

        if (start < end)
            plan.stretches[plan.count++] = { static_cast<int> (start - first), start + segment.offset,
                                             static_cast<int> (end - start) };
    }

    return plan;
}

}   // namespace baylink
