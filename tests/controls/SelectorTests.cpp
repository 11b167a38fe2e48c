// SPDX-License-Identifier: GPL-3.0-or-later
#include "ControlRig.h"
#include "controls/OxJuceSelectorControl.h"
#include "gui/Pictures.h"

namespace
{

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
        rowHeight = selector->getFont()->getHeight() + 2;
    }
    ~ListRig() override { editor.reset(); }

    /** The list of the selector, above everything else once it has been open. */
    OxJuceSelectorPopUp& list()
    {
        return dynamic_cast<OxJuceSelectorPopUp&> (*editor->surface.getChildren().getLast());
    }

    void open() { click (window, { 30, 15 }); }
    void clickRow (int row) { click (window, { 50, list().getY() + row * rowHeight + rowHeight / 2 }); }

    ControlEars ears;
    std::unique_ptr<OxJuceSelectorControl> selector = std::make_unique<OxJuceSelectorControl> ("selector");
    int rowHeight = 0;
};

TEST (SelectorTest, ChoosesARowInOneGesture)
{
    ListRig rig;
    rig.open();
    EXPECT_TRUE (rig.selector->isOpen());
    EXPECT_EQ (rig.ears.heard, "< ");
    EXPECT_EQ (rig.list().getBounds(), juce::Rectangle<int> (20, 25, 100, 3 * rig.rowHeight));
    rig.clickRow (2);
    EXPECT_FALSE (rig.selector->isOpen());
    EXPECT_EQ (rig.ears.heard, "< =0.002 > ");
    EXPECT_EQ (rig.selector->getSelectedText(), "Bass");

    rig.open();
    click (rig.window, { 190, 110 });
    EXPECT_EQ (rig.ears.heard, "< =0.002 > < > ") << "a click beside chooses nothing";
    EXPECT_FALSE (rig.selector->isOpen());
    rig.selector->setValue (0.5f, false);
    EXPECT_EQ (rig.selector->getSelectedText(), "") << "past the end";
}

TEST (SelectorTest, KeepsADisabledRowOutOfReach)
{
    ListRig rig;
    rig.selector->setValue (0.001f, false);
    rig.selector->disableFirstRow();
    rig.open();
    rig.clickRow (0);
    EXPECT_TRUE (rig.selector->isOpen());
    rig.selector->setTextColour (juce::Colours::red);
    rig.selector->setItems ({ "none", "Drums", "Bass" });
    rig.clickRow (0);
    EXPECT_EQ (rig.ears.heard, "< ") << "the same list again keeps its marks";
    EXPECT_EQ (rig.selector->getItemColour (1), juce::Colours::white);
    rig.selector->setItems ({ "none", "Drums" });
    EXPECT_EQ (rig.selector->getItemColour (1), juce::Colours::red);
    rig.clickRow (0);
    EXPECT_EQ (rig.ears.heard, "< =0 > ");
}

TEST (SelectorTest, OpensWhereThereIsRoom)
{
    for (const auto& [y, numItems, top] :
         { std::tuple (10, 6, 25), { 69, 2, 84 }, { 70, 2, 85 - 26 }, { 100, 20, 115 - 260 }, { 50, 0, 65 } })
    {
        ListRig rig;
        ASSERT_EQ (rig.rowHeight, 13);
        rig.selector->setItems (juce::StringArray::fromTokens (juce::String::repeatedString ("x ", numItems).trim(), false));
        rig.selector->setTopLeftPosition (20, y);
        click (rig.window, { 30, y + 5 });
        EXPECT_EQ (rig.list().getY(), top) << numItems;
        EXPECT_EQ (rig.list().getHeight(), 13 * numItems);
        click (rig.window, { 190, 5 });
        EXPECT_EQ (rig.ears.heard, "< > ");
    }
}

TEST (SelectorTest, ClosesWithItsGestureWhenItGoesOrIsLocked)
{
    using Act = std::function<void (ListRig&)>;

    for (const auto& act : { Act ([] (ListRig& r) { r.selector->setLocked (true); }),
                             Act ([] (ListRig& r) { r.selector->setVisible (false); }) })
    {
        ListRig rig;
        rig.open();
        act (rig);
        EXPECT_FALSE (rig.selector->isOpen());
        EXPECT_EQ (rig.ears.heard, "< > ");
        rig.open();
        EXPECT_FALSE (rig.selector->isOpen());
    }

    ListRig rig;
    rig.ears.onValue = [&]
    {
        rig.editor->surface.removeChildComponent (rig.selector.get());
        rig.selector.reset();
    };
    rig.open();
    rig.clickRow (1);
    EXPECT_EQ (rig.selector, nullptr);
    EXPECT_EQ (rig.editor->surface.getNumChildComponents(), 0) << "nothing of it is left to draw";
    EXPECT_TRUE (rig.frames (2));
}

TEST (SelectorTest, LooksLikeItsTwin)
{
    ListRig rig;
    rig.selector->setItems ({ "", "", " " });
    rig.selector->disableFirstRow();
    rig.selector->setValue (0.001f, false);
    rig.open();
    const auto twin = [&]
    {
        return painted (200, 120,
                        [&] (juce::Graphics& g)
                        {
                            g.setOrigin (20, 10);
                            rig.selector->paint (g);
                            g.setOrigin (-20, -10);
                            g.fillAll (juce::Colour (0x64000000));
                            g.setOrigin (rig.list().getPosition());
                            rig.list().paint (g);
                        });
    };

    for (const auto row : { 0, 1, 2 })
    {
        point (rig.window, { 50, rig.list().getY() + row * rig.rowHeight + 3 }, false);
        EXPECT_EQ (rig.list().getHoverRow(), row);
        EXPECT_TRUE (looksLike (twin(), rig.picture(), 2)) << row;
    }

    const auto empty = rig.picture();
    rig.selector->setItems ({ "none", "Drums", "Bass" });
    EXPECT_GT (difference (empty, rig.picture()).numPixels, 60);
    EXPECT_EQ (rig.allocationsOfAFrame(), 0);
}

}   // namespace
