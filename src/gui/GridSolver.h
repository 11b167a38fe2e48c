// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

/** One row or one column of a grid. */
struct GridTrack
{
    bool fixed = false;     // size is pixels; else it is a weight among the relative tracks
    int size = 100;         // pixels or weight; with weight 0 a track is one of 0 pixels
    int resolved = -1;      // pixels, what the last solve gave
    int minimum = -1;       // pixels, of relative tracks; below 1 for none
    int maximum = -1;       // pixels, of relative tracks; below 1 for none
    int alignment = 0;      // of the track's cells that have none of their own; 0 for none
    bool hidden = false;    // has neither size nor gap
    bool settled = false;   // the solver's mark
};

/** Shares out the pixels of one direction among the tracks of a grid, in whole numbers; nothing allocates.

    Fixed tracks take what they ask for. The relative ones share the rest by weight within their bounds; if nothing is left
    they fall to their minimum, and the tracks overflow the grid. */
class GridSolver
{
public:
    /** What becomes of pixels that the tracks leave over. */
    enum Mode : int
    {
        before = 0,   // they stand before the first track
        alsoBefore = 2,
        stretch = 4,   // all go to the relative tracks, the last few evenly spread
        around = 5     // half of them stand before the first track; the rest, as in all other modes, after the last
    };

    /** @param trackList  solved in place; outlives the solver
        @param pixels     to share out, without the gaps */
    GridSolver (std::vector<GridTrack>& trackList, int pixels) : tracks (trackList), available (pixels) {}

    /** Sets `resolved` of every track. @returns the first track's offset in pixels */
    int solve (int mode);

private:
    enum class Bound
    {
        minimum,
        maximum
    };

    void settleGivenSizes();
    bool settleAtBounds (Bound bound);
    void settle (GridTrack& track, int pixels);
    void fallToMinimum();
    void distribute (int mode);
    int shareOf (const GridTrack& track) const;

    std::vector<GridTrack>& tracks;
    int available;                  // pixels that no settled track has taken
    std::int64_t totalWeight = 0;   // of the tracks that are not settled
};
