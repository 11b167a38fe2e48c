// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/GridSolver.h"

#include <gtest/gtest.h>

namespace
{

GridTrack weight (int weight, int minimum = -1, int maximum = -1)
{
    GridTrack track;
    track.size = weight, track.minimum = minimum, track.maximum = maximum;
    return track;
}

GridTrack fixed (int pixels)
{
    auto track = weight (pixels);
    return track.fixed = true, track;
}

GridTrack hidden (GridTrack track)
{
    return track.hidden = true, track;
}

TEST (GridSolverTest, SharesPixelsByWeightAndBounds)
{
    using Tracks = std::vector<GridTrack>;
    const std::tuple<const char*, Tracks, int, int, std::vector<int>, int> rows[] {
        { "fixed tracks go first", { fixed (30), weight (1), fixed (20), weight (2) }, 110, 4, { 30, 20, 20, 40 }, 0 },
        { "hidden takes no share", { hidden (weight (100)), weight (0), weight (100) }, 50, 4, { 0, 0, 50 }, 0 },
        { "last pixel to the third", { weight (1), weight (1), weight (1) }, 100, 4, { 33, 33, 34 }, 0 },
        { "last pixels spread", { weight (1), weight (1), fixed (7), weight (1) }, 99, 4, { 30, 31, 7, 31 }, 0 },
        { "last pixel before all", { weight (1), weight (1), weight (1) }, 100, 0, { 33, 33, 33 }, 1 },
        { "minimum shrinks the others", { weight (1), weight (1), weight (1, 60) }, 120, 4, { 30, 30, 60 }, 0 },
        { "minimum passed on", { weight (1, 50), weight (1, 28), weight (1) }, 100, 4, { 50, 28, 22 }, 0 },
        { "maximum feeds the others", { weight (1, -1, 10), weight (1), weight (1) }, 100, 4, { 10, 45, 45 }, 0 },
        { "maximums stretched", { weight (1, -1, 20), weight (1, -1, 30) }, 101, 4, { 20, 30 }, 0 },
    };

    for (auto [what, tracks, pixels, mode, sizes, offset] : rows)
        for (int again = 0; again < 2; ++again)   // what an earlier layout left must not matter
        {
            EXPECT_EQ (GridSolver (tracks, pixels).solve (mode), offset) << what;

            for (std::size_t i = 0; i < sizes.size(); ++i)
                EXPECT_EQ (tracks[i].resolved, sizes[i]) << what << ", track " << i;
        }
}

}   // namespace
