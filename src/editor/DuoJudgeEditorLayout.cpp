// SPDX-License-Identifier: GPL-3.0-or-later
// How the window is built, once: its controls, their parameters and their looks.
#include "editor/DuoJudgeEditor.h"
#include "engine/DuoJudgeProcessor.h"
#include "gui/Images.h"

#include <limits>

using namespace duoJudge;

namespace
{

using Stops = std::vector<OxJuceMultiGradientHelper::Stop>;

constexpr auto kAllStates = OxJuceButton::kAllStates;
constexpr float kBrighter = 0.1f;   // of an overlay
const juce::Colour kInk { 170, 170, 170 };
const juce::Colour kRule { 0xff0068b2 };
const juce::Colour kBox { 0xff555555 };

/** The gradient of a button in each of its states, from top to bottom. */
Stops getButtonGradient (int state)
{
    const auto brighter = [] (Stops stops)
    {
        for (auto& stop : stops)
            stop.colour = stop.colour.brighter (kBrighter);

        return stops;
    };
    const auto off = [] (juce::Colour last) -> Stops {
        return { { 0.0f, { 93, 97, 83 } }, { 0.1f, { 82, 86, 72 } }, { 0.9f, { 1, 6, 2 } }, { 1.0f, last } };
    };
    const Stops on {
        { 0.0f, { 191, 191, 107 } }, { 0.1f, { 190, 190, 86 } }, { 0.9f, { 81, 74, 0 } }, { 1.0f, { 63, 56, 0 } }
    };

    switch (state)
    {
        case 0:
            return off ({ 0, 0, 0 });
        case 1:
            return on;
        case 2:
            return brighter (off ({ 40, 40, 40 }));
        default:
            return brighter (on);
    }
}

const std::vector<int> kMeterScale { 0, -3, -6, -9, -12, -15, -18, -21, -24 };   // dB
constexpr std::size_t kNumOneDigitLabels = 4;                                    // the first of the scale

/** What a user has typed as a gain in dB; a comma will do for a point. */
float readSendGain (const juce::String& text)
{
    constexpr auto rangeDb = 20.0f, zeroDb = 0.5f;

    if (! text.containsAnyOf ("0123456789"))
        return std::numeric_limits<float>::quiet_NaN();

    return text.replaceCharacter (',', '.').getFloatValue() / rangeDb + zeroDb;
}

}   // namespace

void DuoJudgeEditor::loadResources()
{
    bigLettersFont.load ("FONT_DuoJudgeBigLetters_png", this);
    font44.load ("FONT_FontText44_png", this);
    setSize (kWidth, kHeight);
}

void DuoJudgeEditor::createControls()
{
    const auto title = images::loadImageByName ("Title");
    m_btnTitle.setImage (title, 0);
    m_btnSelect_A.inverted = true;
    m_btnSelect_X.inverted = true;

    for (auto* const button :
         { &m_btnTest, &m_btnReveal, &m_btnCancelTest, &m_btnChoose, &m_btnResumeTest, &m_btnEndTest })
        button->momentary = true;

    constexpr int firstX = 26, firstY = 26;
    const juce::Rectangle large (firstX, firstY, 32, 32), small (firstX, firstY, 10, 10);
    addBound (m_btnTitle, ShowBaseMenu, title.getBounds());
    addBound (m_btnSelect_A, ToggleAB, large);
    addBound (m_btnSelect_B, ToggleAB, large);
    addBound (m_btnTest, Test, small);
    addBound (m_btnNameDisplayBackground, kNoParam, small);
    addBound (m_btnPodDisplayBackground, kNoParam, small);
    addBound (m_btnNameDisplay, kNoParam, { 136, 15 });
    addBound (m_selPodList, kNoParam, { 100, 50 });
    addBound (m_btnSendGain, SendGain, { 60, 23 });
    addBound (m_sliderSendGain, SendGain, {});
    addBound (m_btnSelect_X, ToggleXY, large);
    addBound (m_btnSelect_Y, ToggleXY, large);
    addBound (m_btnReveal, Reveal, small);
    addBound (m_btnCancelTest, EndTest, small);
    addBound (m_btnChoose, Choose, small);
    addBound (m_textNumOfVotes, kNoParam, { 92, 33 });
    addBound (m_btnResumeTest, Resume, small);
    addBound (m_btnEndTest, EndTest, small);
    addBound (m_textStatistics, kNoParam, {});
    addBound (m_textStats_A, kNoParam, { 100, 50 });
    addBound (m_textStats_B, kNoParam, { 100, 50 });
}

/** Binds a control to its parameter and to the window, who listens; the view that needs it puts it in its cell. */
void DuoJudgeEditor::addBound (OxJuceControl& control, int paramId, juce::Rectangle<int> firstBounds)
{
    control.setBounds (firstBounds);
    control.attach (paramId, this);
}

void DuoJudgeEditor::buildGui()
{
    m_btnSendGain.setConvertStringToParam (readSendGain);
    buildGrids();
    styleButtons();
    styleFields();
    styleLines();
    setUpMeters();
    showNormalView();
}

void DuoJudgeEditor::styleButtons()
{
    const std::pair<OxJuceScalableButton*, const char*> labels[] {
        { &m_btnSelect_A, "A" },        { &m_btnSelect_B, "B" },    { &m_btnSelect_X, "X" },
        { &m_btnSelect_Y, "Y" },        { &m_btnTest, "Test" },     { &m_btnReveal, "Reveal" },
        { &m_btnCancelTest, "Cancel" }, { &m_btnChoose, "Choose" }, { &m_btnResumeTest, "Resume" },
        { &m_btnEndTest, "End" }
    };

    for (const auto& [button, label] : labels)
    {
        button->tinted = true;
        button->setLabel (label, kAllStates);
        button->setFont (surface.getFont (18));

        for (int state = 0; state < OxJuceButton::kNumStates; ++state)
        {
            button->setTextColour (state % 2 == 0 ? kInk : juce::Colours::black, state);
            button->setGradient (getButtonGradient (state), state);
        }
    }

    for (auto* const button : { &m_btnTest, &m_btnReveal, &m_btnCancelTest, &m_btnResumeTest, &m_btnEndTest })
        button->setSize (102, 46);

    for (auto* const button : { &m_btnSelect_A, &m_btnSelect_B, &m_btnSelect_X, &m_btnSelect_Y })
    {
        button->setFont (&bigLettersFont);
        button->labelOffset = { 0, -5 };
    }

    for (auto* const button : { &m_btnSelect_A, &m_btnChoose, &m_btnSelect_X, &m_btnSelect_Y })
        button->dimsWhenLocked = false;   // they are not out of use: A is heard, and a vote takes a moment
}

void DuoJudgeEditor::styleFields()
{
    for (auto* const box : { &m_btnNameDisplayBackground, &m_btnPodDisplayBackground })
        box->setTintColour (juce::Colours::black, kAllStates);

    m_btnNameDisplay.boxColour = juce::Colours::transparentBlack;
    m_btnNameDisplay.setFont (surface.getFont (14));
    showInstanceName();

    // The text is the picture here: the box is its fill, and a background would lie over it.
    m_btnSendGain.setTextMode (true);
    m_btnSendGain.draggable = false;
    m_btnSendGain.typeInDisabled = false;
    m_btnSendGain.setFillColour (kBox);

    m_sliderSendGain.orientation = OxJuceSlider::Orientation::horizontal;
    m_sliderSendGain.setImage (images::loadImageByName ("SliderHandle"), 0);
    m_sliderSendGain.thumbFadesColour = true;
    m_sliderSendGain.thumbColour = juce::Colour (212, 210, 211);
    m_sliderSendGain.thumbHoverColour = juce::Colours::white;

    for (auto* const field : { &m_textNumOfVotes, &m_textStats_A, &m_textStats_B })
        field->setStateFill (juce::Colours::black, kAllStates);

    m_textNumOfVotes.setFont (surface.getFont (14));
    m_textNumOfVotes.setTextColour (juce::Colours::white, kAllStates);
    m_textStatistics.setStateFill (juce::Colours::transparentBlack, kAllStates);
    m_textStatistics.setTextColour (kInk, kAllStates);
    m_textStatistics.labelOffset = { 0, -5 };
    updateStatistics();
}

void DuoJudgeEditor::styleLines()
{
    sendGainLine.setBounds (100, 100, 150, 50);
    sendGainLine.addPoint (0.1f, 0.5f, kRule);
    sendGainLine.addPoint (0.9f, 0.5f, kRule);

    for (auto* const line : { &chooseLineLeft, &chooseLineRight, &statsLineLeft, &statsLineRight })
    {
        line->setSize (28, 4);
        line->addPoint (0.2f, 0.5f, kRule);
        line->addPoint (0.8f, 0.5f, kRule);
        line->addPoint (0.2f, 0.51f, kRule);
        line->addPoint (0.8f, 0.51f, kRule);
    }
}

void DuoJudgeEditor::setUpMeters()
{
    constexpr auto fallDbPerSecond = 13.333333f;
    constexpr std::pair<float, juce::uint32> zones[] {
        { -21.0f, 0xffc0c0c0 }, { -9.0f, 0xffc0c0c0 }, { -3.0f, 0xffffff00 }, { 0.0f, 0xffff0000 }
    };

    for (std::size_t index = 0; index < meters.size(); ++index)
    {
        auto& observer = processor.getMeter (static_cast<int> (index));
        observer.fallRateDbPerSecond = fallDbPerSecond;

        auto& meter = meters[index];
        meter.observer = &observer;
        meter.setOrientation (OxJuceDynamicDisplayLevelMeter::vertical);
        meter.setMaxDb (0.0f);
        meter.setMinDb (-20.0f);
        meter.setStepDb (0.5f);
        meter.setGap (1);
        meter.hold.fallRateDbPerSecond = fallDbPerSecond;
        meter.hold.holdSeconds = 2.0f;

        for (std::size_t zone = 0; zone < std::size (zones); ++zone)
        {
            meter.zoneLimits[zone] = zones[zone].first;
            meter.zoneColours[zone] = juce::Colour (zones[zone].second);
        }

        meter.setTickValues (kMeterScale);
        meter.labelColour = juce::Colour (0xffd3d3d3);
        meter.showTicks = true;
    }

    addMeterScale();
}

/** The numbers stand between the two pairs of meters, and belong to the last one; the ticks on either side of them to the first
    and the last. */
void DuoJudgeEditor::addMeterScale()
{
    const juce::Colour tickColour { 0xff969696 };
    auto &ownLeft = meters[0], &podLeft = meters[1], &ownRight = meters[2], &podRight = meters[3];

    ownLeft.ticksRight = true;
    ownLeft.tickOffsetRight = { 12, 0 };
    ownLeft.tickColour = tickColour;
    podLeft.labelGap = 10;
    ownRight.labelGap = 10;
    ownRight.labelsFirstSide = false;

    podRight.showLabels = true;
    podRight.labelGap = 30;
    podRight.setLabelValues (kMeterScale);
    podRight.setLabelOffsets (LevelMeterScale::Offsets (kNumOneDigitLabels, { -2, 0 }));
    podRight.ticksLeft = true;
    podRight.tickOffsetLeft = { 10, 0 };
    podRight.tickColour = tickColour;
}
