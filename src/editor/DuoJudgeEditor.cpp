// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/DuoJudgeEditor.h"

#include "engine/DuoJudgeProcessor.h"

using namespace duoJudge;

namespace
{

constexpr float kVoteFadeStep = 0.08f;   // of the overlay, a frame

}   // namespace

DuoJudgeEditor::DuoJudgeEditor (DuoJudgeProcessor& processorToShow) :
    DuoJudgeEditorBase (processorToShow), processor (processorToShow)
{
    const OxScopedReadWriteLock lock (editorLock, OxScopedReadWriteLock::Mode::write, true, __func__);
    loadResources();
    createControls();
    buildGui();
    surface.enableRendering();
    updateGui();
}

DuoJudgeEditor::~DuoJudgeEditor()
{
    if (processor.parameter (Choose).editedByGui)
        processor.disarmVote();   // the hand loses it

    stopRendering();
}

// From the user -------------------------------------------------------------------------------------------------------

void DuoJudgeEditor::controlValueChanged (OxJuceControl& control)
{
    DuoJudgeEditorBase::controlValueChanged (control);
    const auto isInView = control.isShowing();   // what goes with its view is let go of too
    const auto isReleased = isInView && control.getValue() == 0.0f;

    if (&control == &m_selPodList)
        selectPod (m_selPodList.getSelectedIndex());
    else if (&control == &m_btnNameDisplay)
        takeInstanceName();
    else if (&control == &m_btnTest && isReleased && processor.getSelectedPodId() != baylink::kNoPod)
        showTestView();   // a pod that goes while the button is held lets go of it too
    else if (&control == &m_btnReveal && isReleased)
        showResultsView();
    else if (&control == &m_btnResumeTest && isReleased)
        resumeTest();
}

void DuoJudgeEditor::selectPod (int row)
{
    const auto podId = [&]
    {
        const juce::ScopedLock lock (processor.podLock);
        return juce::isPositiveAndBelow (row, processor.podIds.size()) ? processor.podIds[row] : baylink::kNoPod;
    }();

    if (podId != baylink::kNoPod)
        processor.connectToPod (podId);
}

void DuoJudgeEditor::resumeTest()
{
    processor.drawSource();
    showTestView();
}

void DuoJudgeEditor::takeInstanceName()
{
    const auto name = m_btnNameDisplay.getText();
    processor.setInstanceName (name == kUnnamed ? "" : name);
    showInstanceName();
}

// From the processor --------------------------------------------------------------------------------------------------

void DuoJudgeEditor::updateProductGui()
{
    if (const auto& end = processor.parameter (EndTest); end.changed && end.value == 0.0f)
    {
        updateStatistics();
        showNormalView();
    }

    if (processor.getVoteStatistics().votes != votesOnShow)
        confirmVote();

    chooseLineLeft.setVisible (m_btnSelect_X.isVisible() && m_btnSelect_X.getState() != 0);
    chooseLineRight.setVisible (m_btnSelect_Y.isVisible() && m_btnSelect_Y.getState() != 0);

    if (processor.nameChanged)
    {
        processor.nameChanged = false;
        showInstanceName();
    }
}

void DuoJudgeEditor::confirmVote()
{
    const auto before = votesOnShow;
    updateStatistics();

    if (votesOnShow < before)
        return;   // a test has ended

    for (OxJuceButton* const button : { &m_btnSelect_X, &m_btnSelect_Y, &m_btnChoose })
        button->startOneShotFade (kVoteFadeStep, kVoteFadeStep);
}

// In the menu ---------------------------------------------------------------------------------------------------------

void DuoJudgeEditor::addOptionRows (OxJuceMenu& rows)
{
    rows.addOptionSelector ("Host Supports Timecode", { "Detect", "Off", "On" }, UseTimestampedPodAudioOverride);
}

void DuoJudgeEditor::addCreditLines (OxJuceMenu& lines)
{
    lines.cursorY += OxJuceMenu::kGap;
    lines.addText ("Special thanks to all who listened", OxJuceMenu::kTextHeight);
}

// Each tick -----------------------------------------------------------------------------------------------------------

void DuoJudgeEditor::onTimerTick()
{
    followPods();
    const auto hasNoPod = processor.getSelectedPodId() == baylink::kNoPod;

    for (OxJuceControl* const control : { &m_btnTest, &m_btnSelect_A, &m_btnSelect_B })
        control->setLocked (hasNoPod);

    for (OxJuceControl* const control : { &m_btnChoose, &m_btnSelect_X, &m_btnSelect_Y })
        control->setLocked (processor.isVoteFadeActive());
}

void DuoJudgeEditor::followPods()
{
    // The audio thread may wait for the lock, and the selector for a frame: no frame may pass under the lock.
    const auto [names, row] = [this]
    {
        const juce::ScopedLock lock (processor.podLock);
        return std::pair (processor.podNames, processor.podIds.indexOf (processor.getSelectedPodId()));
    }();
    m_selPodList.setItems (names);
    m_selPodList.setValue (row >= 0 ? thousandths::fromCode (row) : 0.0f, false);

    if (! names.isEmpty())
        m_selPodList.disableFirstRow();
}
