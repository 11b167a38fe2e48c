// SPDX-License-Identifier: GPL-3.0-or-later
#include "ControlRig.h"
#include "controls/OxJuceResizableCornerComponent.h"

namespace
{

using Area = juce::Rectangle<int>;

struct Grip : OxJuceResizableCornerComponent
{
    using OxJuceResizableCornerComponent::OxJuceResizableCornerComponent;

    double getMilliseconds() const override { return now; }
    void dragAfter (double milliseconds, float x) { now += milliseconds, mouseDrag (mouseAt (*this, { x, 20.0f })); }

    static inline double now = 1.0e12;   // beyond the real clock
};

TEST (GripTest, ResizesWithinTheLimitsAtMostTenTimesASecond)
{
    juce::ComponentBoundsConstrainer limits;
    limits.setMaximumWidth (130);
    juce::Component free, held;
    Grip gripOfFree (&free), gripOfHeld (&held, &limits), gripOfNone;
    free.setBounds (7, 8, 100, 100), held.setBounds (7, 8, 100, 100);

    for (auto* const grip : { &gripOfFree, &gripOfHeld, &gripOfNone })
        grip->mouseDown (mouseAt (*grip));

    gripOfFree.dragAfter (0.0, 40.0f);
    EXPECT_EQ (free.getBounds(), Area (7, 8, 140, 120));
    gripOfFree.dragAfter (99.0, 80.0f), gripOfHeld.dragAfter (0.0, 80.0f);
    EXPECT_TRUE (free.getWidth() == 140 && held.getWidth() == 100) << "too soon, for any grip";
    gripOfHeld.dragAfter (1.0, 80.0f);
    EXPECT_EQ (held.getBounds(), Area (7, 8, 130, 120));
    gripOfFree.dragAfter (100.0, 20.0f), gripOfNone.dragAfter (100.0, 20.0f);
    EXPECT_EQ (free.getWidth(), 120) << "counted from where the drag began";
    gripOfNone.setSize (20, 20);

    for (const auto& [x, firstY] : { std::pair (0, 15), { 5, 10 }, { 14, 1 }, { 19, -4 } })
        EXPECT_TRUE (gripOfNone.hitTest (x, firstY) && ! gripOfNone.hitTest (x, firstY - 1)) << x;
}

}   // namespace
