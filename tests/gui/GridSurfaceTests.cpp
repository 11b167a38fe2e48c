// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ControlRig.h"
#include "gui/OxJuceOglGridComponent.h"

namespace
{

struct GridRig : ControlRig
{
    GridRig()
    {
        grid.setBounds (4, 2, 60, 40);
        grid.setNumColumns (2), grid.setNumRows (1);
        grid.setAutoLayout (true);
        add (grid);
    }
    ~GridRig() override { editor = nullptr; }

    OxJuceOglGridComponent grid { "Grid" };
};

TEST (GridSurfaceTest, DrawsBackgroundThenExtrasThenMainComponentsEachInItsPlace)
{
    GridRig rig;
    const auto filled = [] (juce::Colour colour)
    { return [colour] (Sketch& s) { s.colour() = colour, s.drawFilledRect (s.getDrawnLocalBounds()); }; };
    Sketch background ({ 1, 2, 3, 3 }, filled (juce::Colours::blue)),
        onIt ({ 2, 3, 50, 9 }, filled (juce::Colours::white)), extra ({ 0, 0, 7, 30 }, filled (juce::Colours::red)),
        main ({ 0, 0, 9, 9 }, filled (juce::Colours::lime)), hidden ({ 0, 0, 9, 9 }, filled (juce::Colours::pink));
    juce::Component plain;
    plain.setBounds (5, 0, 1, 1);
    plain.addAndMakeVisible (onIt), background.addAndMakeVisible (plain);
    onIt.setOglComponent (rig.editor.get());
    rig.grid.setCellAlignment (0, 0, 5), rig.grid.setCellAlignment (1, 0, 6);
    rig.grid.setCellComponent (0, 0, &main);
    rig.grid.setCellExtraComponent (1, 0, &extra, false, true);
    rig.grid.setCellExtraComponent (0, 0, &hidden, false, false);
    rig.grid.setBackgroundComponent (&background, false, true);
    juce::Image expected (juce::Image::RGB, 80, 60, true);

    for (const auto& [colour, area] : { std::pair (juce::Colours::blue, juce::Rectangle (5, 4, 60, 40)),
                                        { juce::Colours::white, { 12, 7, 50, 9 } },
                                        { juce::Colours::lime, { 15, 18, 9, 9 } },
                                        { juce::Colours::red, { 57, 7, 7, 30 } } })
        expected.clear (area, colour);

    EXPECT_TRUE (looksLike (expected, rig.picture(), 0));
    EXPECT_EQ (rig.allocationsOfAFrame(), 0);
}

TEST (GridSurfaceTest, TakesAComponentOutOfAParentThatIsBeingDrawn)
{
    struct Leaver : Sketch
    {
        using Sketch::Sketch;
        void parentHierarchyChanged() override { leaves.signal(), Sketch::parentHierarchyChanged(); }

        juce::WaitableEvent leaves { true };
    };

    GridRig rig;
    Leaver leaver ({ 0, 0, 9, 9 });
    juce::WaitableEvent frameIsHalfDone;
    Sketch first ({ 0, 0, 9, 9 });
    rig.add (leaver);
    leaver.leaves.reset();
    // The grid is drawn after this. Whoever took its lock and then waits for the frame has the leaver leave by now.
    first.sketch = [&] (Sketch&) { frameIsHalfDone.signal(), leaver.leaves.wait (20); };
    rig.add (first);
    rig.grid.toFront (false);
    ASSERT_TRUE (pumpUntil ([&] { return frameIsHalfDone.wait (0); }));
    EXPECT_TRUE (rig.grid.setCellComponent (0, 0, &leaver));
    const auto before = leaver.numDraws.get();
    EXPECT_TRUE (pumpUntil ([&] { return leaver.numDraws > before; }));
    rig.editor = nullptr;
}

}   // namespace
