// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceSlider.h"

#include "ControlRig.h"

namespace
{

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
    for (const auto& [script, heard] : {
             std::pair ("press 55 0 | drag 80 0 | release", "< 0.5 0.75 >"),
             { "press 55 0 fine | drag 75 0 fine | release", "< 0.5 0.52 >" },
             { "press 55 0 reset | drag 80 0 reset | release", "< 0.5 0 0.75 0 >" },
             { "wheel 0 1 | wheel 1 0 | wheel -1 0 fine", "< > < 0.35 > < 0.315 >" },
             { "press 55 0 | wheel 1 0 | drag 65 0 | release", "< 0.5 0.85 0.6 >" },
             { "press 55 0 | lock | drag 65 0 | wheel 1 0 | release | press 5 0", "< 0.5 >" },
             { "press 55 0 | lock | unlock | drag 65 0 | release", "< 0.5 >" },
         })
    {
        Slider slider;
        Hand hand (slider);
        slider.setTrackBounds (0, 0, 100, 100, false);
        EXPECT_EQ (hand.play (script), heard) << script;
    }
}

TEST (SliderTest, StaysLitForFiftyMillisecondsAndDimsForTwoHundred)
{
    Slider slider;
    Hand hand (slider);
    hand.play ("enter");
    auto now = AnimationClock::read();
    EXPECT_EQ (slider.stepThumbFade (now), 1.0f);
    hand.play ("exit");

    for (const auto& [ms, light] :
         { std::pair (-9.0, 1.0f), { 50.0, 1.0f }, { 50.0, 0.75f }, { 149.0, 0.005f }, { 1.0, 0.0f }, { 1.0, 0.0f } })
        EXPECT_NEAR (slider.stepThumbFade (now += ms), light, 1.0e-6f) << ms;

    hand.play ("lock | enter");
    EXPECT_EQ (slider.stepThumbFade (now + 50.0), 0.0f);
}

}   // namespace
