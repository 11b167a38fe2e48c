// SPDX-License-Identifier: GPL-3.0-or-later
// What the pod's labels say: of a piece where it is, and of where else it could be.
#include "AudioRing.h"
#include "StreamMatcher.h"

namespace baylink
{
namespace
{

constexpr int kExactBlocks = 6;   // with labels to the sample make a host that does not round

}   // namespace

StreamMatcher::Evidence StreamMatcher::compare (const Piece& piece, const Pod& pod) noexcept
{
    Evidence evidence;
    const auto first = std::max (piece.start + piece.offset, piece.firstPlace);
    const auto last = std::min (piece.lastBlock + piece.offset, piece.endPlace - 1);

    pod.runs.visitFromNewest (pod.written,
                              [&] (const LabelRuns::Run& run)
                              {
                                  const auto from = std::max (run.place, first);

                                  if (run.end <= first)
                                      return false;

                                  if (! run.moves || from > std::min (run.lastBlock, last))
                                      return true;

                                  const auto agrees = LabelRuns::areNear (
                                      run.labelAt (from), piece.labelAt (from - piece.offset), 2 * LabelRuns::kJitter);

                                  if (agrees && run.isFresh)
                                      return true;

                                  evidence.agrees = agrees;

                                  if (agrees)
                                      evidence.agreedTo = std::min (run.lastBlock, last);
                                  else
                                      evidence.contradictedFrom = from;

                                  return ! evidence.agrees;
                              });
    return evidence;
}

/** Looks for the piece's labels in what the ring still holds. @returns the place with the most usual lead, and of several
    the newest */
std::optional<StreamMatcher::Find> StreamMatcher::search (Piece piece, int index, const Pod& pod) const noexcept
{
    std::optional<Find> best;
    const auto isNewest = piece.end > asked;

    if (isNewest)
    {
        piece.pace = pace;
        piece.written = leads.isEmpty() ? piece.written : lastWritten;
    }

    pod.runs.visitFromNewest (pod.written,
                              [&] (const LabelRuns::Run& run)
                              {
                                  if (run.end <= pod.written - AudioRing::kCapacity)
                                      return false;

                                  const auto floor = floorOf (index, run);
                                  const auto take = [&] (std::int64_t sample, std::int64_t label)
                                  {
                                      if (const auto find = findIn (run, piece, floor, sample, label, pod);
                                          find.has_value() && (! best.has_value() || *find < *best))
                                          best = find;
                                  };

                                  // Before the first proof, a label that was just jumped to may be the one that is meant.
                                  if (run.isFresh && isNewest && leads.isEmpty())
                                      return false;

                                  if (! run.moves || run.isFresh)
                                      return true;

                                  take (piece.start, piece.label);

                                  if (isNewest && piece.start < asked)
                                      take (asked, lastLabel);

                                  return true;
                              });
    return best;
}

/** Lays a sample of the piece where the run bears its label. @returns nothing if the piece cannot lie there */
std::optional<StreamMatcher::Find> StreamMatcher::findIn (const LabelRuns::Run& run, const Piece& piece,
                                                          std::int64_t floor, std::int64_t sample, std::int64_t label,
                                                          const Pod& pod) const noexcept
{
    const auto ahead = LabelRuns::wrappedDifference (label, run.label);

    if (ahead < -AudioRing::kCapacity || ahead > pod.written + AudioRing::kCapacity || (! run.exact && ahead != 0))
        return {};

    Find find;
    find.offset = run.place + ahead - sample;
    const auto first = piece.start + find.offset, last = piece.lastBlock + find.offset;
    const auto isLatest = run.end == pod.written;
    const auto bears = first <= run.lastBlock && last >= run.place;
    const auto mayBear = first >= run.place && first <= run.end + (isLatest ? AudioRing::kCapacity : -1);

    if (! bears && ! mayBear)
        return {};

    // Where the host rounds, only blocks that begin together have one label for one place.
    const auto isSteady =
        exactBlocks >= kExactBlocks ||
        (run.exact && run.lastBlock - run.place >= std::min (kExactBlocks * pod.latestBlock, kMatchedLatency));
    find.certain = (bears && (isSteady || ahead == 0)) || (mayBear && isLatest && isSteady);
    find.beginsAlike = find.certain && first == run.place;

    const auto lead = piece.pace - find.offset;
    const auto isFirst = leads.isEmpty();
    find.distance = leadDistance (lead);

    if (! isFirst && find.distance > leads.width())
        return {};

    // While the pod pauses, what it wrote before proves nothing; nor does a former pass, before the pod had time to come
    // to the one that is meant.
    const auto isNear = isFirst && isLatest && find.distance == 0;
    const auto patience = isFirst && find.distance > 0 ? std::min (2 * pod.latestBlock, kMatchedLatency) : 1;

    if (first < piece.written && pod.written - piece.written < patience && ! isNear)
        return {};

    if (first < run.place && run.exact)
        find.firstPlace = run.place;

    // The pod's samples come in the order of the listener's, too.
    if (sample + find.offset < floor && last < floor)
        return {};

    find.firstPlace = first < floor ? std::max (find.firstPlace, floor) : find.firstPlace;
    return find;
}

/** @returns how far a lead is from those that were proven or, before there is one, from what most hosts have. */
std::int64_t StreamMatcher::leadDistance (std::int64_t lead) const noexcept
{
    return leads.isEmpty() ? std::max<std::int64_t> ({ 0, -lead, lead - reach() }) : leads.distance (lead);
}

/** @returns the place up to which the pod is known to belong to what came before a piece. A piece that was laid into the run
    behind a pause, into the middle of its own labels, gives way to one that begins as the run does. */
std::int64_t StreamMatcher::floorOf (int index, const LabelRuns::Run& run) const noexcept
{
    auto floor = run.place <= heard.agreedTo ? heard.end + heard.offset : -kForever;

    for (int i = 0; i < index; ++i)
        if (const auto& former = pieces[i]; run.place <= former.agreedTo && former.firstPlace != run.place)
            floor = std::max (floor, former.end + former.offset);

    return floor;
}

}   // namespace baylink
