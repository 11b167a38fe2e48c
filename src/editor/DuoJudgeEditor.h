// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/OxJuceDragControl.h"
#include "controls/OxJuceLines.h"
#include "controls/OxJuceScalableButton.h"
#include "controls/OxJuceSelectorControl.h"
#include "controls/OxJuceSlider.h"
#include "controls/OxJuceTextEdit.h"
#include "editor/DuoJudgeEditorBase.h"
#include "metering/OxJuceScalableDynamicDisplayLevelMeter.h"

class DuoJudgeProcessor;

/** The product's window, of one size, and its three views: open comparison, blind test, results.

    To change the view is to put other components into the cells of one grid. Selection, test and votes are the processor's;
    the window keeps nothing of them, and always opens on the first view. All on the message thread. */
class DuoJudgeEditor : public DuoJudgeEditorBase
{
public:
    explicit DuoJudgeEditor (DuoJudgeProcessor& processorToShow);
    ~DuoJudgeEditor() override;

    // OxJuceEditorBase
    void updateProductGui() override;
    void onTimerTick() override;
    bool hasOptionRows() const override { return true; }
    void addOptionRows (OxJuceMenu& rows) override;
    void addCreditLines (OxJuceMenu& lines) override;

    // OxJuceControl::Listener
    void controlValueChanged (OxJuceControl& control) override;

private:
    // Construction ----------------------------------------------------------------------------------------------------

    void loadResources();
    void createControls();
    void addBound (OxJuceControl& control, int paramId, juce::Rectangle<int> firstBounds);
    void buildGui();
    void styleButtons();
    void styleFields();
    void styleLines();
    void setUpMeters();
    void addMeterScale();

    // Views -----------------------------------------------------------------------------------------------------------

    void showNormalView();
    void showTestView();
    void showResultsView();
    void showNameAndPod (bool shown);
    void lockPods (bool locked);
    void placeSendGain();
    void updateStatistics();
    void showInstanceName();
    void confirmVote();
    void followPods();

    // From the user ---------------------------------------------------------------------------------------------------

    void selectPod (int row);
    void resumeTest();
    void takeInstanceName();

    DuoJudgeProcessor& processor;

    OxJuceButton m_btnTitle { "m_btnTitle" };
    OxJuceScalableButton m_btnSelect_A { "m_btnSelect_A", kLargeFrame, kLargeCorner };
    OxJuceScalableButton m_btnSelect_B { "m_btnSelect_B", kLargeFrame, kLargeCorner };
    OxJuceScalableButton m_btnTest { "m_btnTest", kSmallFrame, kSmallCorner };
    OxJuceScalableButton m_btnNameDisplayBackground { "m_btnNameDisplayBackground", kSmallFrame, kSmallCorner };
    OxJuceScalableButton m_btnPodDisplayBackground { "m_btnPodDisplayBackground", kSmallFrame, kSmallCorner };
    OxJuceTextEdit m_btnNameDisplay { "m_btnNameDisplay" };
    OxJuceSelectorControl m_selPodList { "m_selPodList" };
    OxJuceDragControl m_btnSendGain { "m_btnSendGain" };
    OxJuceSlider m_sliderSendGain { "m_sliderSendGain" };
    OxJuceScalableButton m_btnSelect_X { "m_btnSelect_X", kLargeFrame, kLargeCorner };
    OxJuceScalableButton m_btnSelect_Y { "m_btnSelect_Y", kLargeFrame, kLargeCorner };
    OxJuceScalableButton m_btnReveal { "m_btnReveal", kSmallFrame, kSmallCorner };
    OxJuceScalableButton m_btnCancelTest { "m_btnCancelTest", kSmallFrame, kSmallCorner };
    OxJuceScalableButton m_btnChoose { "m_btnChoose", kSmallFrame, kSmallCorner };
    OxJuceButton m_textNumOfVotes { "m_textNumOfVotes" };
    OxJuceScalableButton m_btnResumeTest { "m_btnResumeTest", kSmallFrame, kSmallCorner };
    OxJuceScalableButton m_btnEndTest { "m_btnEndTest", kSmallFrame, kSmallCorner };
    OxJuceButton m_textStatistics { "m_textStatistics" };
    OxJuceButton m_textStats_A { "m_textStats_A" };
    OxJuceButton m_textStats_B { "m_textStats_B" };

    std::array<OxJuceScalableDynamicDisplayLevelMeter, 4> meters;   // as the processor's
    OxJuceOglFont bigLettersFont, font44;
    int votesOnShow = 0;
    OxJuceLines sendGainLine, chooseLineLeft, chooseLineRight, statsLineLeft, statsLineRight;

    static constexpr const char* kUnnamed = "Self";
    static constexpr const char* kLargeFrame = "ButtonMid";
    static constexpr const char* kSmallFrame = "ButtonVSmall";
    static constexpr int kLargeCorner = 9, kSmallCorner = 4;   // pixels

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (DuoJudgeEditor)
};
