// SPDX-License-Identifier: GPL-3.0-or-later
#include "ControlRig.h"
#include "controls/OxJuceButton.h"
#include "controls/OxJuceSlider.h"

namespace
{

TEST (ControlTest, LivesThroughAListenerThatDeletesIt)
{
    for (const auto* const last : { "<", "1", "0", ">" })
    {
        const auto expectDeath = [&] (auto control, const char* script)
        {
            Hand hand (*control);
            hand.react = [&] (const juce::String& what) { what == last ? control.reset() : void(); };
            hand.play (script);
            EXPECT_EQ (control, nullptr) << last << " " << script;
        };
        auto button = std::make_unique<OxJuceButton> ("button");
        button->momentary = true;
        expectDeath (std::move (button), "press | release");

        for (const auto* const script : { "wheel 0 9 | wheel 0 -99", "press 0 0 | drag 0 -999 | drag 0 999 | release" })
        {
            auto slider = std::make_unique<OxJuceSlider> ("slider");
            slider->setTrackBounds (0, 0, 10, 10, true);
            expectDeath (std::move (slider), script);
            expectDeath (std::make_unique<OxJuceDragControl> ("knob"), script);
        }

        auto typed = std::make_unique<OxJuceDragControl> ("typed");
        typed->setConvertStringToParam ([] (const juce::String& text) { return text.getFloatValue(); });
        expectDeath (std::move (typed), "type 1 | type 0");
    }
}

}   // namespace
