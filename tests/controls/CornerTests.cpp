// SPDX-License-Identifier: GPL-3.0-or-later
#include "Mouse.h"
#include "controls/OxJuceModalBackground.h"
#include "controls/OxJuceResizableCornerComponent.h"
#include "gui/SurfaceRig.h"

namespace
{

struct Grip : OxJuceResizableCornerComponent
{
    using OxJuceResizableCornerComponent::OxJuceResizableCornerComponent;

    double getMilliseconds() const override { return now; }
    void dragTo (float x, float y) { mouseDrag (mouseAt (*this, { x, y }, { 5.0f, 5.0f })); }

    static inline double now = 1.0e12;   // beyond the real clock's, which other grips may have used
};

TEST (CornerTest, TakesTheMouseInItsLowerRightTriangle)
{
    Grip grip;
    grip.setSize (20, 20);

    for (const auto& [x, y, inside] : { std::tuple (5, 5, false),
                                        { 5, 10, true },
                                        { 5, 9, false },
                                        { 19, 0, true },
                                        { 0, 14, false },
                                        { 0, 15, true } })
        EXPECT_EQ (grip.hitTest (x, y), inside) << x << ", " << y;

    grip.setSize (0, 20);
    EXPECT_FALSE (grip.hitTest (0, 19));
}

TEST (CornerTest, ResizesWithinTheLimitsAtMostTenTimesASecond)
{
    juce::ComponentBoundsConstrainer limits;
    limits.setMaximumWidth (130);
    juce::Component free, held;
    Grip gripOfFree (&free), gripOfHeld (&held, &limits), gripOfNone;
    free.setBounds (7, 8, 100, 100), held.setBounds (7, 8, 100, 100);
    const auto drag = [&] (Grip& grip, double milliseconds, float x)
    {
        Grip::now += milliseconds;
        grip.dragTo (x, 25.0f);
    };
    gripOfFree.mouseDown (mouseAt (gripOfFree)), gripOfHeld.mouseDown (mouseAt (gripOfHeld));
    drag (gripOfFree, 0.0, 45.0f);
    EXPECT_EQ (free.getBounds(), juce::Rectangle (7, 8, 140, 120));
    drag (gripOfFree, 99.0, 85.0f), drag (gripOfHeld, 0.0, 85.0f);
    EXPECT_TRUE (free.getWidth() == 140 && held.getWidth() == 100) << "too soon, for any grip";
    drag (gripOfHeld, 1.0, 85.0f);
    EXPECT_EQ (held.getBounds(), juce::Rectangle (7, 8, 130, 120));
    drag (gripOfFree, 100.0, 25.0f);
    EXPECT_EQ (free.getWidth(), 120) << "counted from where the drag began";
    drag (gripOfNone, 100.0, 25.0f);
    gripOfHeld.mouseUp (mouseAt (gripOfHeld));
}

TEST (ModalBackgroundTest, CoversTheEditorAndStandsInItsMiddle)
{
    struct Case
    {
        juce::Rectangle<int> editor, panel;
    };

    for (const auto& [area, panel] : { Case { { 0, 0, 535, 267 }, { 57, 0, 420, 267 } },
                                       { { 9, 5, 600, 550 }, { 99, 5, 420, 550 } },
                                       { { 9, 5, 601, 751 }, { 99, 100, 420, 550 } } })
    {
        SurfaceRig rig (80, 60, false);
        OxJuceModalBackground modal;
        rig.editor->setBounds (area);
        modal.setEditor (rig.editor.get());
        modal.setEditor (nullptr);
        EXPECT_EQ (modal.backgroundButton.getBounds(), area);
        EXPECT_EQ (modal.panelButton.getBounds(), panel);
    }
}

}   // namespace
