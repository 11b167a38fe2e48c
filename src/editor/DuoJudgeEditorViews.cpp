// SPDX-License-Identifier: GPL-3.0-or-later
// What stands in the cells in each view, and what it says.
#include "editor/DuoJudgeEditor.h"

#include "engine/DuoJudgeProcessor.h"

namespace
{

// Alignment codes of a grid.
constexpr int kTopCentre = 2, kMiddleLeft = 4, kCentred = 5, kMiddleRight = 6, kFill = 10;

constexpr auto kAllStates = OxJuceButton::kAllStates;

/** Puts a component in its cell in the size that it has, unless it is to fill it. */
void put (OxJuceOglGridComponent& grid, int column, int row, juce::Component& component, int alignment = kFill)
{
    if (grid.getCellComponent (column, row) == &component)
        return;

    // A gesture on what goes ends now, before the scene is held. It goes before the alignment changes, which is not to
    // change its size.
    if (auto* const before = grid.getCellComponent (column, row))
        before->setVisible (false);

    grid.setCellComponent (column, row, nullptr);
    grid.setCellAlignment (column, row, alignment);
    grid.setCellComponent (column, row, &component);
}

}   // namespace

void DuoJudgeEditor::showNormalView()
{
    put (mainGrid, 1, 3, m_btnSelect_A);
    put (mainGrid, 3, 3, m_btnSelect_B);
    showNameAndPod (true);
    lockPods (false);
    put (mainGrid, 2, 5, m_btnTitle, kCentred);
    put (mainGrid, 1, 5, m_btnTest, kTopCentre);
    put (mainGrid, 3, 5, gainControlGrid);
    mainGrid.setCellSpan (3, 5, 1, 2);
    put (mainGrid, 2, 1, levelMeterGrid);
    mainGrid.setCellSpan (2, 1, 1, 3);
    placeSendGain();

    constexpr int columns[] { 1, 5, 3, 7 };   // by meter: the own pair to the left, the pod's to the right

    for (std::size_t index = 0; index < meters.size(); ++index)
        put (levelMeterGrid, columns[index], 0, meters[index]);
}

void DuoJudgeEditor::showTestView()
{
    updateStatistics();
    put (mainGrid, 1, 3, m_btnSelect_X);
    put (mainGrid, 3, 3, m_btnSelect_Y);
    put (mainGrid, 2, 1, chooseButtonGrid);
    put (mainGrid, 1, 5, m_btnReveal, kTopCentre);
    mainGrid.setCellSpan (3, 5, 1, 1);
    put (mainGrid, 3, 5, m_btnCancelTest, kTopCentre);

    put (chooseButtonGrid, 1, 0, m_textNumOfVotes, kCentred);
    put (chooseButtonGrid, 1, 2, m_btnChoose);
    put (chooseButtonGrid, 0, 2, chooseLineLeft, kMiddleLeft);
    put (chooseButtonGrid, 2, 2, chooseLineRight, kMiddleRight);
    chooseLineLeft.setVisible (false);
    chooseLineRight.setVisible (false);
    showNameAndPod (false);
}

void DuoJudgeEditor::showResultsView()
{
    put (mainGrid, 1, 3, m_btnSelect_A);
    put (mainGrid, 3, 3, m_btnSelect_B);
    showNameAndPod (true);
    put (mainGrid, 1, 5, m_btnResumeTest, kTopCentre);
    put (mainGrid, 3, 5, m_btnEndTest, kTopCentre);
    put (mainGrid, 2, 1, statisticsGrid);

    put (statisticsGrid, 1, 0, m_textStats_A);
    put (statisticsGrid, 3, 0, m_textStats_B);
    put (statisticsGrid, 2, 2, m_textStatistics);
    put (statisticsGrid, 0, 2, statsLineLeft, kMiddleLeft);
    put (statisticsGrid, 4, 2, statsLineRight, kMiddleRight);
    lockPods (true);
    updateStatistics();

    if (const auto votes = processor.getVoteStatistics(); votes.percentA != votes.percentB)
        m_btnSelect_A.setValue (votes.percentA > votes.percentB ? 1.0f : 0.0f, true);
}

void DuoJudgeEditor::showNameAndPod (bool shown)
{
    for (auto* const box : { &m_btnNameDisplayBackground, &m_btnPodDisplayBackground })
        box->setLabel (shown ? "" : "Test in progress ", kAllStates);

    mainGrid.setCellExtraComponent (1, 1, &m_btnNameDisplayBackground, false, true);
    put (mainGrid, 1, 1, m_btnNameDisplay, kCentred);
    mainGrid.setCellExtraComponent (3, 1, &m_btnPodDisplayBackground, false, true);
    put (mainGrid, 3, 1, m_selPodList);
    m_btnNameDisplay.setVisible (shown);
    m_selPodList.setVisible (shown);
}

/** A list that cannot be opened is grey too, which the lock alone does not make it. */
void DuoJudgeEditor::lockPods (bool locked)
{
    m_selPodList.setLocked (locked);
    m_selPodList.setEnabled (! locked);
}

/** The knob travels along the line; its control is laid over the cell by hand, for a grid knows nothing of travel. */
void DuoJudgeEditor::placeSendGain()
{
    put (gainControlGrid, 5, 0, m_btnSendGain);
    gainControlGrid.setCellExtraComponent (4, 1, &sendGainLine, false, true);
    put (gainControlGrid, 4, 1, m_sliderSendGain);

    const auto cell = gainControlGrid.getCellRect (4, 1);
    m_sliderSendGain.setTrackBounds (cell.getX() + 15, cell.getY() + cell.getHeight() / 2 - 5, cell.getWidth() - 30,
                                     cell.getHeight() / 2, false);
}

void DuoJudgeEditor::updateStatistics()
{
    const auto votes = processor.getVoteStatistics();
    const auto hasVotes = votes.votes > 0;
    votesOnShow = votes.votes;
    const auto write = [hasVotes] (OxJuceButton& field, const juce::String& text)
    { field.setSolidLabel (hasVotes ? text : "-", kAllStates); };

    m_textNumOfVotes.setSolidLabel (juce::String (votes.votes), kAllStates);
    write (m_textStats_A, juce::String (votes.votesForA));
    write (m_textStats_B, juce::String (votes.votesForB));
    write (m_textStatistics, juce::String (std::max (votes.percentA, votes.percentB)) + "%");
    m_textStatistics.setFont (std::max (votes.percentA, votes.percentB) == 100 ? &font44 : &bigLettersFont);
    statsLineLeft.setVisible (hasVotes && votes.percentA >= votes.percentB);
    statsLineRight.setVisible (hasVotes && votes.percentB >= votes.percentA);
}

void DuoJudgeEditor::showInstanceName()
{
    const auto name = processor.getInstanceName();
    m_btnNameDisplay.setText (name.isEmpty() ? kUnnamed : name);
}
