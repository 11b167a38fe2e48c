// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceSlider.h"

#include "ControlRig.h"
#include "controls/OxJuceButton.h"

namespace
{

constexpr auto horizontal = OxJuceSlider::Orientation::horizontal, vertical = OxJuceSlider::Orientation::vertical;

/** With a grey thumb, 11 pixels wide and 9 high. */
struct Slider : OxJuceSlider
{
    Slider() : OxJuceSlider ("slider")
    {
        juce::Image thumb (juce::Image::RGB, 11, 9, false);
        thumb.clear (thumb.getBounds(), juce::Colours::grey);
        setImage (thumb, 0);
        setTrackBounds (20, 10, 100, 10, true);
    }

    using OxJuceSlider::stepThumbFade;
};

TEST (SliderTest, FollowsThePointerInGestures)
{
    for (const auto& [orientation, travel, script, heard] : {
             std::tuple (horizontal, 100, "press 55 0 | drag 80 0 | release", "< 0.5 0.75 >"),
             { horizontal, 100, "press 55 0 fine | drag 75 0 fine | release", "< 0.5 0.52 >" },
             { horizontal, 100, "press 55 0 reset | drag 80 0 reset | release", "< 0.5 0 0.75 0 >" },
             { horizontal, 100, "wheel 0 1 | wheel 1 0 | wheel -1 0 fine", "< > < 0.35 > < 0.315 >" },
             { horizontal, 100, "press 55 0 | wheel 1 0 | drag 65 0 | release", "< 0.5 0.85 0.6 >" },
             { horizontal, 100, "press 55 0 | lock | drag 65 0 | wheel 1 0 | release | press 5 0", "< 0.5 >" },
             { horizontal, 100, "press 55 0 | lock | unlock | drag 65 0 | release", "< 0.5 >" },
             { vertical, 100, "press 0 29 | drag 0 14 | release", "< 0.75 0.9 >" },
             { vertical, 100, "press 0 29 fine | drag 0 59 fine | release", "< 0.75 0.72 >" },
             { vertical, 100, "wheel 9 1 | press 104 4", "< 0.35 > < 1" },
             { vertical, 0, "press 3 3 | release | wheel 1 1", "< > < >" },
             { OxJuceSlider::Orientation::none, 100, "press 9 9 | drag 0 0 | release | wheel 1 1", "< > < >" },
         })
    {
        Slider slider;
        Hand hand (slider);
        slider.orientation = orientation;
        slider.setTrackBounds (0, 0, travel, travel, false);
        EXPECT_EQ (hand.play (script), heard) << script;
    }
}

TEST (SliderTest, StaysLitForFiftyMillisecondsAndDimsForTwoHundred)
{
    Slider slider;
    Hand hand (slider);
    hand.play ("enter");
    EXPECT_EQ (slider.stepThumbFade (juce::Time (1000)), 1.0f);
    hand.play ("exit");

    for (const auto& [now, light] :
         { std::pair (991, 1.0f), { 1050, 1.0f }, { 1100, 0.75f }, { 1249, 0.005f }, { 1250, 0.0f } })
        EXPECT_NEAR (slider.stepThumbFade (juce::Time (now)), light, 1.0e-6f) << now;

    hand.play ("lock | enter");
    EXPECT_EQ (slider.stepThumbFade (juce::Time (1300)), 0.0f);
}

TEST (SliderTest, ActsForAnotherParameterAndLeavesTheMouseToAHostThatTakesIt)
{
    ControlRig rig (200, 60);
    Slider gain, other;
    OxJuceButton button ("button");
    button.setBounds (150, 10, 30, 20);
    button.attach (duoJudge::ToggleAB, rig.editor.get());
    gain.attach (duoJudge::SendGain, rig.editor.get());
    other.attach (kNoParam, rig.editor.get());
    rig.add (gain), rig.add (button);
    other.otherParameterId = duoJudge::SendGain;
    EXPECT_EQ (Hand (other).play ("press 15 0 reset"), "< 0.1 0.5") << "the default of the parameter for which it acts";

    rig.told.clear();
    rig.click ({ 190, 20 });   // beside the button
    rig.click ({ 160, 20 });
    rig.editor->addHostMouseListener (rig);
    rig.click ({ 160, 20 });
    EXPECT_EQ (rig.told, "3< 3=1 3> ");
    rig.setParamDirect (duoJudge::ToggleAB, 0.0f, true);   // automation
    EXPECT_TRUE (pumpUntil ([&] { return button.getState() == 0; }));
    gain.attach (duoJudge::ToggleAB, rig.editor.get());
    EXPECT_EQ (Hand (gain).play ("press 15 0 | drag 25 0 | release | wheel 1 0"), "");
    gain.attach (kNoParam, rig.editor.get());
    rig.editor.reset();
}

}   // namespace
