// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/GridAlignment.h"
#include "gui/OxJuceGridComponent.h"

#include <algorithm>

namespace
{

/** @returns the pixels that lie between the tracks as they are asked for. */
int gapsBetween (const std::vector<GridTrack>& tracks, int gap)
{
    return gap *
           static_cast<int> (std::count_if (tracks.begin() + 1, tracks.end(),
                                            [] (const GridTrack& track) { return track.size >= 1 && ! track.hidden; }));
}

/** @returns the pixels from the track's start to the end of the last track that the span reaches. */
int extentOf (const std::vector<GridTrack>& tracks, std::size_t index, int span, int gap)
{
    auto extent = tracks[index].resolved;
    const auto end = std::min (tracks.size(), index + static_cast<std::size_t> (span));

    for (auto further = index + 1; further < end; ++further)
        extent += tracks[further].resolved + (tracks[further].resolved > 0 && ! tracks[index].hidden ? gap : 0);

    return extent;
}

/** @returns the pixels from the track's start to the next one's. */
int advanceOf (const std::vector<GridTrack>& tracks, std::size_t index, int gap)
{
    const auto next = index + 1;
    return tracks[index].resolved + (next < tracks.size() && tracks[next].resolved > 0 ? gap : 0);
}

int firstAlignment (std::initializer_list<int> alignments)
{
    return *std::find_if (alignments.begin(), alignments.end() - 1, [] (int alignment) { return alignment != 0; });
}

}   // namespace

void OxJuceGridComponent::layOut()
{
    if (! dirty || rowTracks.empty() || columnTracks.empty())
        return;

    dirty = false;
    layoutOffsetY = GridSolver (rowTracks, getHeight() - gapsBetween (rowTracks, rowGap)).solve (rowMode);
    layoutOffsetX = GridSolver (columnTracks, getWidth() - gapsBetween (columnTracks, columnGap)).solve (columnMode);
    computeCellRects();

    if (auto* const background = backgroundComponent.getComponent())
        background->setSize (getWidth(), getHeight());

    // A component may answer its new bounds by changing the grid, which then lays out anew in the midst of this.
    for (int row = 0; row < getNumRows(); ++row)
    {
        for (int column = 0; column < getNumColumns(); ++column)
        {
            place (column, row, &Cell::main);
            place (column, row, &Cell::extra);
        }
    }
}

void OxJuceGridComponent::computeCellRects()
{
    auto y = layoutOffsetY;

    for (std::size_t row = 0; row < rowTracks.size(); ++row)
    {
        auto x = layoutOffsetX;

        for (std::size_t column = 0; column < columnTracks.size(); ++column)
        {
            auto& cell = cells[row][column];
            cell.cellRect = { x, y, extentOf (columnTracks, column, cell.columnSpan, columnGap),
                              extentOf (rowTracks, row, cell.rowSpan, rowGap) };
            x += advanceOf (columnTracks, column, columnGap);
        }

        y += advanceOf (rowTracks, row, rowGap);
    }
}

void OxJuceGridComponent::place (int column, int row, ComponentPointer Cell::*which)
{
    if (! hasCell (column, row))
        return;

    auto& cell = cellAt (column, row);
    auto* const component = (cell.*which).getComponent();

    if (component == nullptr)
        return;

    const auto alignment = firstAlignment ({ cell.alignment, columnTracks[static_cast<std::size_t> (column)].alignment,
                                             rowTracks[static_cast<std::size_t> (row)].alignment, defaultAlignment });
    component->setBounds (alignInCell (alignment, cell.cellRect, { component->getWidth(), component->getHeight() }));
}
