// SPDX-License-Identifier: GPL-3.0-or-later
#include "SurfaceRig.h"
#include "gui/OxJuceGridComponent.h"

namespace
{

using Box = juce::Rectangle<int>;

struct Piece : juce::Component
{
    Piece() { setSize (7, 5); }
};

/** 100 by 100 pixels, relative tracks, laid out at once. */
struct Grid : OxJuceGridComponent
{
    Grid (int columns, int rows)
    {
        setSize (100, 100);
        setNumColumns (columns);
        setNumRows (rows);
        setAutoLayout (true);
    }
};

TEST (GridTest, PutsGapsAndSpansAroundHiddenColumns)
{
    Grid grid (4, 3);
    Piece covered, background;
    grid.setCellComponent (1, 0, &covered);
    grid.setBackgroundComponent (&background, false, true);
    grid.setColumnSize (0, 20, true), grid.setColumnHidden (1, true), grid.setColumnSize (2, 40, true);
    grid.setRowSize (1, 0, false);
    grid.setGaps (5, 2);
    EXPECT_TRUE (grid.setCellSpan (0, 0, 3, 1) && grid.setCellSpan (1, 1, 3, 2));
    const Box rects[3][4] { { { 0, 0, 65, 49 }, { 20, 0, 0, 49 }, { 25, 0, 40, 49 }, { 70, 0, 30, 49 } },
                            { { 0, 49, 20, 0 }, { 20, 49, 70, 51 }, { 25, 49, 40, 0 }, { 70, 49, 30, 0 } },
                            { { 0, 51, 20, 49 }, { 20, 51, 0, 49 }, { 25, 51, 40, 49 }, { 70, 51, 30, 49 } } };

    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ (grid.getCellRect (column, row), rects[row][column]) << column << ", " << row;

    EXPECT_EQ (covered.getBounds(), rects[0][1]);
    EXPECT_EQ (background.getBounds(), grid.getLocalBounds());
    grid.setColumnHidden (1, false), grid.setColumnLimits (1, 12, -1);
    EXPECT_TRUE (grid.resetCellSpans (0, 0, 4, 3));
    EXPECT_EQ (grid.getCellRect (0, 0), Box (0, 0, 20, 49));
}

}   // namespace
