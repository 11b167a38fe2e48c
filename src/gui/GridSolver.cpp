// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/GridSolver.h"

#include <algorithm>
#include <limits>

namespace
{

/** @returns how many pixels the track can take on top of its size. */
int roomOf (const GridTrack& track)
{
    if (track.fixed || track.hidden || track.size == 0)
        return 0;

    return track.maximum < 1 ? std::numeric_limits<int>::max() : std::max (0, track.maximum - track.resolved);
}

bool canGrow (const GridTrack& track)
{
    return roomOf (track) > 0;
}

}   // namespace

int GridSolver::solve (int mode)
{
    settleGivenSizes();

    if (available <= 0 || ! settleAtBounds (Bound::minimum) || ! settleAtBounds (Bound::maximum))
    {
        fallToMinimum();
        return 0;
    }

    for (const auto& track : tracks)
        if (! track.settled)
            available -= track.resolved;

    if (available < 1)
        return 0;

    distribute (mode);

    if (mode == before || mode == alsoBefore)
        return available;

    return mode == around ? available / 2 : 0;
}

void GridSolver::settleGivenSizes()
{
    for (auto& track : tracks)
    {
        track.settled = false;

        if (track.hidden)
            settle (track, 0);
        else if (track.fixed || track.size == 0)
            settle (track, track.size);
        else
            totalWeight += track.size;
    }
}

/** Each track that is held to its bound changes the shares of the others, so that the walk starts again.
    @returns false when no pixel is left for the rest */
bool GridSolver::settleAtBounds (Bound bound)
{
    const auto isMinimum = bound == Bound::minimum;

    for (auto track = tracks.begin(); track != tracks.end();)
    {
        const auto share = shareOf (*track);
        const auto limit = isMinimum ? track->minimum : track->maximum;

        if (! track->settled && limit >= 1 && (isMinimum ? share < limit : share > limit))
        {
            settle (*track, limit);
            totalWeight -= track->size;

            if (available < 1)
                return false;

            track = tracks.begin();
            continue;
        }

        // What held tracks leave over is distributed at the end: the second walk moves no share.
        if (! track->settled && isMinimum)
            track->resolved = share;

        ++track;
    }

    return true;
}

void GridSolver::settle (GridTrack& track, int pixels)
{
    track.resolved = pixels;
    track.settled = true;
    available -= pixels;
}

void GridSolver::fallToMinimum()
{
    for (auto& track : tracks)
        if (! track.settled)
            track.resolved = std::max (0, track.minimum);
}

void GridSolver::distribute (int mode)
{
    for (;;)
    {
        const auto count = static_cast<int> (std::count_if (tracks.begin(), tracks.end(), canGrow));

        if (count == 0 || available < 1 || (mode != stretch && available < count))
            return;

        const auto each = available / count, rest = available % count;

        if (int carried = 0; each == 0)
        {
            for (auto& track : tracks)
            {
                if (! canGrow (track) || (carried += rest) < count)
                    continue;

                carried -= count;
                ++track.resolved;
                --available;
            }
            return;
        }

        for (auto& track : tracks)
        {
            const auto taken = std::min (each, roomOf (track));
            track.resolved += taken;
            available -= taken;
        }
    }
}

int GridSolver::shareOf (const GridTrack& track) const
{
    return totalWeight == 0 ? 0 : static_cast<int> (std::int64_t { track.size } * available / totalWeight);
}
