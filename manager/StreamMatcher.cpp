// SPDX-License-Identifier: GPL-3.0-or-later
#include "StreamMatcher.h"

#include "AudioRing.h"

namespace baylink
{
namespace
{

/** @returns whether the sender lays labels at present. */
bool bearsLabels (const StreamMatcher::Pod& pod) noexcept
{
    auto bears = false;
    pod.runs.visitFromNewest (pod.written,
                              [&] (const LabelRuns::Run& run)
                              {
                                  bears = run.end == pod.written && run.moves;
                                  return false;
                              });
    return bears;
}

/** @returns whether what the ring holds has labels. */
bool boreLabels (const StreamMatcher::Pod& pod) noexcept
{
    auto bore = false;
    pod.runs.visitFromNewest (pod.written,
                              [&] (const LabelRuns::Run& run)
                              {
                                  bore = run.end > pod.written - AudioRing::kCapacity;
                                  return false;
                              });
    return bore;
}

}   // namespace

StreamMatcher::Plan StreamMatcher::match (const Block& block, const Pod& pod) noexcept
{
    const auto flows = pod.written != lastWritten || asked == 0;

    if (flows)
        pace = pod.written - asked;

    longestBlock.meet (block.length, asked);
    longestPodBlock.meet (pod.latestBlock, asked);
    takeIn (block, pod);

    // An empty pod that was there first means that both began together, unless its audio keeps out too long.
    if (pod.written == 0 && asked > kMatchedLatency)
    {
        pieces[count - 1].state = State::nowhere;
        lastLead.reset();
    }

    for (int i = 0; i < count; ++i)
        settle (i, pod);

    if (flows)
        watchLead (block.length, pod);

    if (pieces[count - 1].state == State::nowhere)
        guess (block, pod);

    guessAtStart (block, pod);
    const auto plan = makePlan (block.length, pod);
    asked += block.length;
    lastWritten = pod.written;
    wasPlaying = block.playing;
    forgetHeard (pod);
    return plan;
}

/** Adds the block to the newest piece if it goes on from it, or else begins another one. */
void StreamMatcher::takeIn (const Block& block, const Pod& pod) noexcept
{
    const auto stands = ! block.labelled || (hasLastLabel && block.label == lastLabel);

    if (count == 0)
    {
        begin (asked, block.label, block.labelled && boreLabels (pod));
    }
    else
    {
        auto& newest = pieces[count - 1];
        const auto isSingle = newest.lastBlock == newest.start;
        const auto goesOn =
            hasLastLabel && ! stands && LabelRuns::areNear (newest.labelAt (asked), block.label, LabelRuns::kJitter);

        if (goesOn)
            exactBlocks = newest.labelAt (asked) == block.label ? exactBlocks + 1 : 0;

        // One block alone does not tell whether its label stands.
        if (isSingle && hasLastLabel && (stands || goesOn || newest.start == 0))
            newest.moves = ! stands;

        if (isSingle && hasLastLabel && (stands || goesOn))
            ;
        // The last of those that stood may be the first that does not.
        else if (! newest.moves && hasLastLabel && ! stands &&
                 LabelRuns::wrappedSum (lastLabel, asked - newest.lastBlock) == block.label)
        {
            const auto at = newest.lastBlock;
            newest.end = at;
            begin (at, lastLabel, true);
            pieces[count - 1].written = lastWritten;
        }
        else if (newest.moves ? ! goesOn : ! stands)
        {
            begin (asked, block.label, ! stands);
        }
    }

    auto& newest = pieces[count - 1];
    newest.end = asked + block.length;
    newest.lastBlock = asked;

    if (newest.start == asked)
        newest.written = pod.written;

    lastLabel = block.label;
    hasLastLabel = block.labelled;
}

void StreamMatcher::begin (std::int64_t sample, std::int64_t label, bool moves) noexcept
{
    Piece piece;

    if (count > 0)
    {
        const auto& former = pieces[count - 1];
        piece.offset = former.offset;
        piece.state = former.state == State::proven ? State::counted : former.state;
    }

    piece.start = sample;
    piece.label = label;
    piece.moves = moves;
    piece.pace = pace;
    insert (count, piece);
}

StreamMatcher::Piece& StreamMatcher::insert (int index, const Piece& piece) noexcept
{
    if (count == kMaxPieces)
    {
        std::copy (pieces.begin() + 1, pieces.begin() + index, pieces.begin());
        --index;
        --count;
    }

    std::copy_backward (pieces.begin() + index, pieces.begin() + count, pieces.begin() + count + 1);
    ++count;
    return pieces[index] = piece;
}

/** Lets another piece begin at `sample`, within a piece or at its start. @returns the new one, which lies nowhere yet */
StreamMatcher::Piece& StreamMatcher::splitAt (int index, std::int64_t sample) noexcept
{
    auto rest = pieces[index];
    rest.state = State::nowhere;
    rest.agreedTo = -kForever;
    rest.firstPlace = -kForever;
    rest.endPlace = kForever;

    auto& former = pieces[index];

    if (sample == former.start)
        return former = rest;

    rest.label = rest.labelAt (sample);
    former.agreedTo = std::min (former.agreedTo, sample - 1 + former.offset);
    rest.start = sample;
    rest.lastBlock = std::max (sample, rest.lastBlock);
    rest.pace = pace;
    rest.written = lastWritten;

    former.end = sample;
    former.lastBlock = std::min (former.lastBlock, sample - 1);
    return insert (index + 1, rest);
}

/** Looks at a piece that bears labels: is it where it is taken to be, and if not, where else? */
void StreamMatcher::settle (int index, const Pod& pod) noexcept
{
    auto* piece = &pieces[index];

    if (! piece->moves)
        return;

    if (piece->state != State::nowhere)
    {
        const auto evidence = compare (*piece, pod);
        piece->agreedTo = std::max (piece->agreedTo, evidence.agreedTo);

        if (evidence.contradictedFrom < kForever)
        {
            const auto hadAgreed = evidence.agrees || piece->state == State::proven;
            const auto parted = hadAgreed ? evidence.contradictedFrom - piece->offset : piece->start;
            const auto isWhole = parted == piece->start;
            piece = &splitAt (index, parted);

            if (! isWhole)
                return;   // what lies before is as it was, and the rest comes next
        }
        else if (evidence.agrees && piece->state != State::guessed)
        {
            piece->state = State::proven;
            return;
        }
    }

    const auto found = search (*piece, index, pod);

    if (! found.has_value())
        return;

    // What goes on from a proof gives way to what begins alike in both, or to a more usual lead if its own is not.
    if (piece->state >= State::counted && ! found->beginsAlike)
    {
        const auto away = leadDistance (pace - piece->offset);

        if (index < count - 1 || pod.written == lastWritten || away <= leads.width() || found->distance >= away ||
            ! found->certain)
            return;
    }

    piece->offset = found->offset;
    piece->firstPlace = found->firstPlace;
    piece->state = State::guessed;

    if (found->certain)
        prove (index);
}

/** The pod bears the piece's label: what came before and was guessed, or had no labels to tell, lies there as well. */
void StreamMatcher::prove (int index) noexcept
{
    auto& piece = pieces[index];
    piece.state = State::proven;

    for (auto goesOn = true; goesOn && --index >= 0;)
    {
        auto& former = pieces[index];
        goesOn = former.state == State::guessed;

        // Another piece with labels of its own may lie elsewhere, and so may one block whose label was not followed up.
        if (former.moves || former.state == State::proven)
            return;

        former.offset = piece.offset;
        former.state = State::counted;
        former.firstPlace = -kForever;
        former.endPlace = kForever;
    }
}

/** Guesses where the newest piece lies if its labels cannot tell: as far from the pod's end as usual, else where the order
    of most hosts has it. */
void StreamMatcher::guess (const Block& block, const Pod& pod) noexcept
{
    const auto isFirst = asked == 0;

    if (! isFirst && (pod.written == 0 || pod.written == lastWritten || (pieces[count - 1].moves && bearsLabels (pod))))
        return;

    auto& newest = splitAt (count - 1, asked);

    if (lastLead.has_value())
    {
        newest.offset = pace - usualLead (block.length);
        newest.state = State::counted;
        return;
    }

    // Most hosts go through their tracks in order, and the pod was there first; an empty one begins together with the
    // listener.
    newest.offset = pace - std::min<std::int64_t> (pod.written, std::max (block.length, pod.latestBlock));
    newest.state = State::guessed;
}

/** The host begins to play while the listener's place is a guess: senders lay no labels while it stands, so the block's
    place is the first label of theirs. If the listener comes first, it is what they write next, if that bears one. */
void StreamMatcher::guessAtStart (const Block& block, const Pod& pod) noexcept
{
    // Only a start that the listener lived through: one who comes into the playing has missed it.
    if (block.playing && ! wasPlaying && asked > 0)
        startedAt = asked;
    else if (startedAt < 0 || pod.written == lastWritten)
        return;

    const auto& newest = pieces[count - 1];
    auto place = pod.written;
    pod.runs.visitFromNewest (pod.written,
                              [&place] (const LabelRuns::Run& run)
                              {
                                  const auto follows = run.end == place;
                                  place = follows ? run.place : place;
                                  return follows;
                              });

    // A guess is off by a cycle at most: other labels tell of another start.
    const auto ahead = place - startedAt - newest.offset;
    const auto isStart = startedAt == asked || place == lastWritten;

    if (place < pod.written && isStart && ! newest.moves && newest.state == State::guessed &&
        std::abs (ahead) <= std::max (block.length, pod.latestBlock))
    {
        for (int i = 0; i < count; ++i)
            if (pieces[i].state == State::guessed)
                pieces[i].offset += ahead;

        lastLead.reset();
        watchLead (block.length, pod);
    }

    if (place < pod.written || startedAt < asked)
        startedAt = -1;
}

/** The pod has gone on: is it as far ahead of the newest piece as it uses to be? If not, one side missed what the other
    got. A label that agrees may be that of another lap; where none tells, the usual lead is taken up again. */
void StreamMatcher::watchLead (int length, const Pod& pod) noexcept
{
    const auto& newest = pieces[count - 1];

    if (newest.state == State::nowhere)
        return;

    // Before a proof, a place that labels suggest tells nothing of leads.
    if (newest.moves && newest.state == State::guessed)
        return;

    const auto lead = pace - newest.offset;

    if (newest.moves && bearsLabels (pod))
    {
        // Only a host whose leads are steady lets one lap be told from another.
        const auto isSteady = ! leads.isEmpty() && leads.width() <= reach();

        if (newest.state == State::proven && isSteady && leads.distance (lead) > leads.width())
        {
            auto now = newest;
            now.start = asked;
            now.label = lastLabel;

            if (const auto found = search (now, count - 1, pod); found.has_value() && found->distance == 0)
                moveNewest (found->offset);
        }
    }
    else if (lastLead.has_value() && std::abs (lead - usualLead (length)) > 2 * reach())
    {
        moveNewest (pace - usualLead (length));
    }

    lastLead = pace - pieces[count - 1].offset;
    senderFirst = lastLead == length;

    if (pieces[count - 1].state == State::proven)
        leads.meet (*lastLead, asked);
}

/** Lets the newest piece lie elsewhere from this block on. */
void StreamMatcher::moveNewest (std::int64_t offset) noexcept
{
    const auto former = pieces[count - 1];
    const auto podPaused = offset < former.offset;
    const auto parted = podPaused ? std::clamp (lastWritten - offset, former.start, asked) : asked;
    auto* newest = &splitAt (count - 1, parted);
    newest->offset = offset;
    newest->state = former.moves ? State::proven : State::counted;

    // What had parted has come together again: it had not parted, and the pod was only early or late.
    if (! former.moves && std::exchange (offsetBefore, former.offset) == offset)
    {
        for (int i = 0; i < count; ++i)
            if (pieces[i].offset == former.offset || pieces[i].offset == offset)
            {
                pieces[i].offset = offset;
                pieces[i].firstPlace = -kForever;
                pieces[i].endPlace = kForever;
            }

        return;
    }

    if (! podPaused)
        return;

    // The pod paused: what it wrote before is heard already, and what it writes now belongs to nothing from before.
    newest->firstPlace = lastWritten;

    for (int i = 0; i < count - 1; ++i)
        pieces[i].endPlace = std::min (pieces[i].endPlace, lastWritten);
}

void StreamMatcher::forgetHeard (const Pod& pod) noexcept
{
    const auto heardUntil = asked - kMatchedLatency;
    auto kept = 0;

    for (int i = 0; i < count; ++i)
    {
        const auto& piece = pieces[i];

        if (piece.end <= heardUntil)
        {
            if (piece.agreedTo > heard.agreedTo)
                heard = piece;

            continue;
        }

        const auto joins = [&pod] (const Piece& former, const Piece& next)
        {
            return former.offset == next.offset && former.state >= State::counted && next.state >= State::counted &&
                   former.endPlace == kForever && next.firstPlace == -kForever && next.endPlace == kForever &&
                   next.end + next.offset <= pod.written;
        };

        if (kept > 0 && i < count - 1 && joins (pieces[kept - 1], piece))
        {
            auto& former = pieces[kept - 1];
            former.end = piece.end;
            former.agreedTo = std::max (former.agreedTo, piece.agreedTo);
            former.state = std::max (former.state, piece.state);
            former.moves = false;
        }
        else
        {
            pieces[kept++] = piece;
        }
    }

    count = kept;

    // A window that was lost for so long may have been opened by another way of the host's.
    if (const auto& newest = pieces[count - 1]; newest.state == State::nowhere && newest.start <= heardUntil)
        leads.clear();
}

StreamMatcher::Plan StreamMatcher::makePlan (int length, const Pod& pod) const noexcept
{
    Plan plan;
    const auto first = asked - kMatchedLatency;
    const auto labelsTell = boreLabels (pod);
    std::array<std::int64_t, kMaxPieces> bounds;   // where what comes after a piece is known to begin
    auto bound = kForever;

    for (int i = count - 1; i >= 0; --i)
    {
        const auto& piece = pieces[i];
        bounds[i] = bound;

        if (piece.state == State::proven && piece.moves)
            bound = std::max (piece.start + piece.offset, piece.firstPlace);
    }

    for (int i = 0; i < count; ++i)
    {
        const auto& piece = pieces[i];

        // A guess goes for nothing where labels can tell.
        if (piece.state == State::nowhere || (piece.state == State::guessed && piece.moves && labelsTell))
            continue;

        // What the listener got before it was linked lies where its first block does.
        const auto begin = piece.start == 0 ? first : piece.start;
        const auto start = std::max ({ first, begin, piece.firstPlace - piece.offset });
        const auto end = std::min ({ first + length, piece.end, std::min (piece.endPlace, bounds[i]) - piece.offset });

        if (start < end)
            plan.stretches[plan.count++] = { static_cast<int> (start - first), start + piece.offset,
                                             static_cast<int> (end - start) };
    }

    return plan;
}

}   // namespace baylink
