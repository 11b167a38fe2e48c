// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceDragControl.h"

#include "ControlRig.h"

namespace
{

TEST (DragControlTest, ShowsItsParametersTextAndTakesATypedNumberAsOneEdit)
{
    ControlRig rig;
    OxJuceDragControl box ("box");
    Hand hand (box);
    box.setBounds (10, 20, 60, 23);
    box.attach (duoJudge::SendGain, rig.editor.get());
    box.setTextMode (true);
    rig.add (box);
    EXPECT_EQ (hand.play ("doubleclick"), "");
    box.draggable = box.typeInDisabled = false;
    EXPECT_EQ (hand.play ("doubleclick | wheel 1 1 | press 0 0 | drag 9 0 | release"), "< >");
    box.setConvertStringToParam ([] (const juce::String& text)
                                 { return text == "?" ? NAN : text.getFloatValue() / 20.0f + 0.5f; });

    for (int count = 0; count < 3; ++count)
        rig.click ({ 15, 30 });

    EXPECT_EQ (hand.play (""), "< > < > <") << "the third click leaves the typing alone";

    for (const auto& [typed, heard] : { std::pair ("-7", "0.15 >"), { "", ">" }, { "?", ">" } })
    {
        hand.play ("doubleclick");
        EXPECT_TRUE (box.getTextEditor().isOpen());
        box.getTextEditor().setText (typed);
        box.setVisible (false);   // ends the typing
        EXPECT_TRUE (pumpUntil ([&] { return ! box.getTextEditor().isOpen(); }));
        box.setVisible (true);
        EXPECT_EQ (hand.play (""), heard) << typed;
    }

    EXPECT_EQ (rig.allocationsOfAFrame(), 0);
    const auto shown = rig.picture();
    box.setValue (0.5f, true);
    EXPECT_GT (difference (shown, rig.picture()).numPixels, 10);
    box.setValue (0.15f, true);
    EXPECT_EQ (difference (shown, rig.picture()).numPixels, 0);
    hand.play ("");
    rig.editor->surface.removeAllChildren();
    EXPECT_EQ (hand.play ("doubleclick | lock"), "< >");
    EXPECT_EQ (hand.play ("type 4"), "< 0.7 >") << "what is typed is not lost to a lock";
    box.attach (kNoParam, rig.editor.get());
    rig.editor.reset();
}

}   // namespace
