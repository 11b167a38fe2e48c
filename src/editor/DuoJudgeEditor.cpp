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
    const juce::ScopedLock lock (processor.podLock);

    if (juce::isPositiveAndBelow (row, processor.podIds.size()))
        processor.connectToPod (processor.podIds[row]);
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
    const auto wasReleased = [this] (int paramId)
    {
        const auto& record = processor.parameter (paramId);
        return record.changed && record.value == 0.0f;
    };

    if (wasReleased (EndTest))
    {
        updateStatistics();
        showNormalView();
    }

    if (wasReleased (Choose))
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
    const auto votesOnShow = m_textNumOfVotes.getLabel (0);
    updateStatistics();

    // A window that has just opened is told of every parameter, votes or no.
    if (m_textNumOfVotes.getLabel (0) == votesOnShow)
        return;

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
