// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxJuceGridComponent.h"

#include <tuple>

namespace
{

template <typename List>
bool isIndex (const List& list, int index)
{
    return juce::isPositiveAndBelow (index, static_cast<int> (list.size()));
}

}   // namespace

bool OxJuceGridComponent::insertRow (int index)
{
    if (index != getNumRows() && ! isIndex (rowTracks, index))
        return false;

    rowTracks.emplace (rowTracks.begin() + index);
    cells.emplace (cells.begin() + index, columnTracks.size());
    changed();
    return true;
}

bool OxJuceGridComponent::insertColumn (int index)
{
    if (index != getNumColumns() && ! isIndex (columnTracks, index))
        return false;

    columnTracks.emplace (columnTracks.begin() + index);

    for (auto& row : cells)
        row.emplace (row.begin() + index);

    changed();
    return true;
}

bool OxJuceGridComponent::removeRow (int index)
{
    if (! isIndex (rowTracks, index))
        return false;

    for (auto& cell : cells[static_cast<std::size_t> (index)])
        empty (cell);

    rowTracks.erase (rowTracks.begin() + index);
    cells.erase (cells.begin() + index);
    changed();
    return true;
}

bool OxJuceGridComponent::removeColumn (int index)
{
    if (! isIndex (columnTracks, index))
        return false;

    columnTracks.erase (columnTracks.begin() + index);

    for (auto& row : cells)
    {
        empty (row[static_cast<std::size_t> (index)]);
        row.erase (row.begin() + index);
    }

    changed();
    return true;
}

void OxJuceGridComponent::setNumRows (int count)
{
    if (count < 0 || count == getNumRows())
        return;

    {
        const juce::ScopedValueSetter<bool> once (autoLayout, false);

        while (getNumRows() < count)
            insertRow (getNumRows());

        while (getNumRows() > count)
            removeRow (getNumRows() - 1);
    }
    changed();
}

void OxJuceGridComponent::setNumColumns (int count)
{
    if (count < 0 || count == getNumColumns())
        return;

    {
        const juce::ScopedValueSetter<bool> once (autoLayout, false);

        while (getNumColumns() < count)
            insertColumn (getNumColumns());

        while (getNumColumns() > count)
            removeColumn (getNumColumns() - 1);
    }
    changed();
}

template <typename Write>
bool OxJuceGridComponent::writeTrack (Tracks& tracks, int index, Write write)
{
    if (! isIndex (tracks, index))
        return false;

    auto& track = tracks[static_cast<std::size_t> (index)];
    const auto settings = [&track]
    { return std::tuple (track.fixed, track.size, track.minimum, track.maximum, track.alignment, track.hidden); };
    const auto before = settings();
    write (track);

    if (settings() != before)
        changed();

    return true;
}

bool OxJuceGridComponent::setRowSize (int row, int size, bool fixed)
{
    return writeTrack (rowTracks, row, [=] (GridTrack& track) { track.size = size, track.fixed = fixed; });
}

bool OxJuceGridComponent::setColumnSize (int column, int size, bool fixed)
{
    return writeTrack (columnTracks, column, [=] (GridTrack& track) { track.size = size, track.fixed = fixed; });
}

bool OxJuceGridComponent::setRowLimits (int row, int minimum, int maximum)
{
    return writeTrack (rowTracks, row, [=] (GridTrack& track) { track.minimum = minimum, track.maximum = maximum; });
}

bool OxJuceGridComponent::setColumnLimits (int column, int minimum, int maximum)
{
    return writeTrack (columnTracks, column,
                       [=] (GridTrack& track) { track.minimum = minimum, track.maximum = maximum; });
}

bool OxJuceGridComponent::setRowHidden (int row, bool hidden)
{
    return writeTrack (rowTracks, row, [=] (GridTrack& track) { track.hidden = hidden; });
}

bool OxJuceGridComponent::setColumnHidden (int column, bool hidden)
{
    return writeTrack (columnTracks, column, [=] (GridTrack& track) { track.hidden = hidden; });
}

bool OxJuceGridComponent::setRowAlignment (int row, int alignment)
{
    return writeTrack (rowTracks, row, [=] (GridTrack& track) { track.alignment = alignment; });
}

bool OxJuceGridComponent::setColumnAlignment (int column, int alignment)
{
    return writeTrack (columnTracks, column, [=] (GridTrack& track) { track.alignment = alignment; });
}
