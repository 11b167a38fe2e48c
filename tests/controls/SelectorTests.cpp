// SPDX-License-Identifier: GPL-3.0-or-later
#include "ControlRig.h"
#include "controls/OxJuceSelectorControl.h"

namespace
{

constexpr int kRow = 13;   // pixels, in the smallest font

/** A selector of three pods in an editor on the screen. */
struct ListRig : ControlRig
{
    ListRig() : ControlRig (200, 120)
    {
        editor->addControl (*selector);
        selector->setBounds (20, 10, 100, 15);
        selector->setFont (editor->surface.getFont (10));
        selector->setFillColour (juce::Colour (0x80323232));
        selector->addListener (&ears);
        selector->setItems ({ "none", "Drums", "Bass" });
    }
    ~ListRig() override { editor.reset(); }

    /** The list, above everything else once it has been open. */
    auto& list() { return dynamic_cast<OxJuceSelectorPopUp&> (*editor->surface.getChildren().getLast()); }
    juce::Point<int> row (int index) { return { 50, list().getY() + index * kRow + 3 }; }
    void open() { click (selector->getPosition() + juce::Point (5, 5)); }

    std::unique_ptr<OxJuceSelectorControl> selector = std::make_unique<OxJuceSelectorControl> ("selector");
};

TEST (SelectorTest, KeepsADisabledRowOutOfReachAndMarksWhileTheListIsTheSame)
{
    ListRig rig;
    rig.selector->setValue (0.001f, false);
    rig.selector->disableFirstRow();
    rig.open();
    rig.click (rig.row (0));
    EXPECT_TRUE (rig.selector->isOpen());
    rig.selector->setTextColour (juce::Colours::red);
    rig.selector->setItems ({ "none", "Drums", "Bass" });
    rig.click (rig.row (0));
    EXPECT_EQ (rig.ears.take(), "<");
    EXPECT_EQ (rig.selector->getItemColour (1), juce::Colours::white);
    EXPECT_EQ (rig.selector->getSelectedText(), "Drums");
    rig.selector->setItems ({ "none" });
    EXPECT_EQ (rig.selector->getSelectedText(), "") << "past the end";
    rig.selector->setItems ({ "none", "Drums" });
    EXPECT_EQ (rig.selector->getItemColour (1), juce::Colours::red);
    rig.click (rig.row (0));
    EXPECT_EQ (rig.ears.take(), "0 >");
}

TEST (SelectorTest, OpensUpwardWhereThereIsNoRoomBelow)
{
    for (const auto& [y, numItems, top] :
         { std::tuple (69, 2, 84), { 70, 2, 85 - 2 * kRow }, { 100, 20, 115 - 20 * kRow }, { 50, 0, 65 } })
    {
        ListRig rig;
        rig.selector->setItems (
            juce::StringArray (std::vector<juce::String> (std::size_t (numItems)).data(), numItems));
        rig.selector->setTopLeftPosition (20, y);
        rig.open();
        EXPECT_EQ (rig.list().getBounds(), juce::Rectangle<int> (20, top, 100, numItems * kRow));
        rig.click ({ 190, 5 });
        EXPECT_EQ (rig.ears.take(), "< >");
    }
}

TEST (SelectorTest, LeavesNoListBehindWhenAListenerDeletesIt)
{
    ListRig rig;
    rig.open();
    rig.ears.react = [&] (const auto& what)
    {
        if (what == "0.001")
            rig.editor->surface.removeChildComponent (rig.selector.get()), rig.selector.reset();
    };
    rig.click (rig.row (1));
    EXPECT_EQ (rig.selector, nullptr);
    EXPECT_EQ (rig.editor->surface.getNumChildComponents(), 1) << "the editor's own screen alone is left to draw";
}

}   // namespace
