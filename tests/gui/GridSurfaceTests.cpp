// SPDX-License-Identifier: GPL-3.0-or-later
#include "SurfaceRig.h"
#include "gui/OxJuceOglGridComponent.h"

namespace
{

TEST (GridSurfaceTest, TakesAComponentOutOfAParentThatIsBeingDrawn)
{
    struct Leaver : Sketch
    {
        using Sketch::Sketch;
        void parentHierarchyChanged() override { leaves.signal(), Sketch::parentHierarchyChanged(); }

        juce::WaitableEvent leaves { true };
    };

    SurfaceRig rig;
    OxJuceOglGridComponent grid { "Grid" };
    Leaver leaver ({ 0, 0, 9, 9 });
    juce::WaitableEvent frameIsHalfDone;
    Sketch first ({ 0, 0, 9, 9 });
    grid.setBounds (4, 2, 60, 40);
    grid.setNumColumns (1), grid.setNumRows (1), grid.setAutoLayout (true);
    rig.add (grid), rig.add (leaver);
    leaver.leaves.reset();
    // The grid is drawn after this. Whoever took its lock and then waits for the frame has the leaver leave by now.
    first.sketch = [&] (Sketch&) { frameIsHalfDone.signal(), leaver.leaves.wait (20); };
    rig.add (first);
    grid.toFront (false);
    ASSERT_TRUE (pumpUntil ([&] { return frameIsHalfDone.wait (0); }));
    EXPECT_TRUE (grid.setCellComponent (0, 0, &leaver));
    const auto before = leaver.numDraws.get();
    EXPECT_TRUE (pumpUntil ([&] { return leaver.numDraws > before; }));
    rig.editor = nullptr;
}

}   // namespace
