// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/GridSolver.h"

#include <juce_gui_basics/juce_gui_basics.h>

/** All layout of the window: a table whose tracks have their own pixels, or a share of what is left [message thread].

    Each cell holds a main component, which becomes a child, and an extra one, which is laid out there too but is no child:
    no mouse reaches it, and it is left to a subclass to draw it. Grids may hold grids. A grid is built empty, and waits to
    be told before it lays out, unless `setAutoLayout` has it follow each change.

    All operations name the column first. A column or a row that is not there gives false, null or an empty rectangle and
    changes nothing; a setting that is as it was lays nothing out. A component that is deleted elsewhere leaves its cell
    empty. */
class OxJuceGridComponent : public virtual juce::Component, private juce::ComponentListener
{
public:
    OxJuceGridComponent();

    /** Lets go of all components, and deletes those it owns. */
    ~OxJuceGridComponent() override;

    /** New tracks are relative, of weight 100; `index` may be the count, for the end. */
    virtual bool insertRow (int index);
    virtual bool insertColumn (int index);

    /** What stands in the track's cells goes as if it were replaced. */
    virtual bool removeRow (int index);
    virtual bool removeColumn (int index);

    /** Takes the component out of the cell where it stands, in this grid or another one, and makes it a visible child, on
        top. What stood here is removed from the grid, or deleted if the grid owns its components.
        @param component  null empties the cell, and lays nothing out; the grid itself and what holds it are refused */
    virtual bool setCellComponent (int column, int row, juce::Component* component);
    virtual juce::Component* getCellComponent (int column, int row) const;

    /** @param component  is taken out of its parent; null for none
        @param owned      the grid deletes it when it is replaced */
    virtual bool setCellExtraComponent (int column, int row, juce::Component* component, bool owned, bool visible);

    /** A component of the grid's size behind all others; like an extra component it is no child. */
    virtual void setBackgroundComponent (juce::Component* component, bool owned, bool visible);

    /** Lets a cell reach over `columns` by `rows` cells, which keep what stands in them.
        @returns false unless both are positive and the span fits inside the grid */
    virtual bool setCellSpan (int column, int row, int columns, int rows);

    /** Gives each cell of an area of `columns` by `rows` cells its own size back; the area must lie inside the grid. */
    virtual bool resetCellSpans (int column, int row, int columns, int rows);

    /** Adds or removes tracks at the end. */
    void setNumRows (int count);
    void setNumColumns (int count);

    /** @param size  in pixels if `fixed`, else a weight */
    bool setRowSize (int row, int size, bool fixed);
    bool setColumnSize (int column, int size, bool fixed);

    /** Bounds of a relative track in pixels; -1 for none. */
    bool setRowLimits (int row, int minimum, int maximum);
    bool setColumnLimits (int column, int minimum, int maximum);

    /** A hidden track has no size and no gap; its components stay visible. */
    bool setRowHidden (int row, bool hidden);
    bool setColumnHidden (int column, bool hidden);

    /** The cell's own alignment code goes before the column's, that before the row's, that before the grid's; 0 for
        none. See GridAlignment.h for the codes. */
    bool setCellAlignment (int column, int row, int alignment);
    bool setColumnAlignment (int column, int alignment);
    bool setRowAlignment (int row, int alignment);
    void setDefaultAlignment (int alignment);

    /** Pixels between tracks. */
    void setGaps (int column, int row);

    /** Where pixels go that the tracks leave over: modes of `GridSolver`. */
    void setModes (int column, int row);

    /** Switched on, lays out at once. */
    void setAutoLayout (bool on);

    /** Whether main components are deleted when they are replaced; they are not when they move to another cell. */
    void setOwnsComponents (bool owns) noexcept { ownsComponents = owns; }

    /** Resizes the background and places all components, if anything changed since the last time. */
    void layOut();

    int getNumRows() const noexcept { return static_cast<int> (rowTracks.size()); }
    int getNumColumns() const noexcept { return static_cast<int> (columnTracks.size()); }

    /** @returns the cell with its span, as the last layout left it */
    juce::Rectangle<int> getCellRect (int column, int row) const;

protected:
    using Tracks = std::vector<GridTrack>;
    using ComponentPointer = juce::Component::SafePointer<juce::Component>;

    struct Cell
    {
        int alignment = 0;
        ComponentPointer main, extra;
        bool extraOwned = false;
        int columnSpan = 1, rowSpan = 1;
        juce::Rectangle<int> cellRect;
    };

    void componentMovedOrResized (juce::Component& component, bool wasMoved, bool wasResized) override;

    std::vector<std::vector<Cell>> cells;   // by row
    ComponentPointer backgroundComponent;

private:
    bool hasCell (int column, int row) const noexcept;
    bool hasArea (int column, int row, int columns, int rows) const noexcept;

    /** @returns whether the component may stand in the grid: not if it is the grid or holds it */
    bool accepts (const juce::Component* component) const;

    /** Empties the cell of a grid in which the component stands, without deleting it. */
    static void takeFromGrid (juce::Component* component);

    /** Takes the component out of its parent, and out of its cell if that is a grid. */
    static void takeFromParent (juce::Component* component);

    void changed();
    template <typename Value>
    void store (Value& setting, Value value);
    template <typename Write>
    bool writeTrack (Tracks& tracks, int index, Write write);
    Cell& cellAt (int column, int row);
    const Cell& cellAt (int column, int row) const;
    void empty (Cell& cell);
    void releaseMain (ComponentPointer& main);
    void releaseExtra (Cell& cell);
    void releaseBackground();

    void computeCellRects();
    void place (int column, int row, ComponentPointer Cell::*which);

    Tracks rowTracks, columnTracks;
    int defaultAlignment = 10, rowMode = GridSolver::stretch, columnMode = GridSolver::stretch;
    int columnGap = 0, rowGap = 0;              // pixels
    int layoutOffsetX = 0, layoutOffsetY = 0;   // pixels, of the first tracks
    bool ownsComponents = false, backgroundOwned = false, dirty = false, autoLayout = false;
};
