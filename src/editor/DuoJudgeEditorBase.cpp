// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/DuoJudgeEditorBase.h"

namespace
{

constexpr int kRelative = 0;   // a track that shares what the others leave

void setTracks (OxJuceOglGridComponent& grid, std::initializer_list<int> columns, std::initializer_list<int> rows)
{
    grid.setNumColumns (static_cast<int> (columns.size()));
    grid.setNumRows (static_cast<int> (rows.size()));
    int column = 0, row = 0;

    for (const auto width : columns)
        if (const auto index = column++; width != kRelative)
            grid.setColumnSize (index, width, true);

    for (const auto height : rows)
        if (const auto index = row++; height != kRelative)
            grid.setRowSize (index, height, true);
}

}   // namespace

void DuoJudgeEditorBase::buildGrids()
{
    background.addStop (0.0f, juce::Colour (64, 64, 64));
    background.addStop (1.0f, juce::Colour (21, 21, 21));
    addControl (mainGrid);
    mainGrid.setBackgroundComponent (&background, false, true);

    setTracks (mainGrid, { 38, 150, 159, 150, 38 }, { 29, 33, 21, 81, 28, 46, 29 });
    setTracks (gainControlGrid, { kRelative, kRelative, kRelative, kRelative, 45, 60, 45 }, { 23, 30, 20 });
    setTracks (levelMeterGrid, { 31, 10, 2, 10, 49, 10, 2, 10, 31 }, { kRelative });
    setTracks (chooseButtonGrid, { 27, 104, 27 }, { 33, 37, 47, 13 });
    setTracks (statisticsGrid, { 13, 56, 21, 56, 13 }, { 33, 22, 76 });
    gainControlGrid.setCellSpan (4, 1, 3, 1);

    for (auto* const grid : { &mainGrid, &levelMeterGrid, &chooseButtonGrid, &statisticsGrid, &gainControlGrid })
        grid->setAutoLayout (true);
}

void DuoJudgeEditorBase::resized()
{
    mainGrid.setBounds (getBounds());
    OxJuceEditorBase::resized();
}
