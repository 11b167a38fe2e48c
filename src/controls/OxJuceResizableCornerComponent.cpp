// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/OxJuceResizableCornerComponent.h"

#include "gui/OxOglComponent.h"

namespace
{

constexpr double kStepInterval = 100.0;   // milliseconds
const auto kLight = juce::Colour::fromRGB (128, 128, 128), kDark = juce::Colour::fromRGB (80, 80, 80);

double nextStepTime = 0.0;   // milliseconds, for all grips [message thread]

}   // namespace

OxJuceResizableCornerComponent::OxJuceResizableCornerComponent (juce::Component* componentToResize,
                                                                juce::ComponentBoundsConstrainer* boundsConstrainer) :
    target (componentToResize),
    constrainer (boundsConstrainer)
{
    setRepaintsOnMouseActivity (true);
    setMouseCursor (juce::MouseCursor::BottomRightCornerResizeCursor);
}

void OxJuceResizableCornerComponent::mouseDown (const juce::MouseEvent&)
{
    if (target == nullptr)
        return;

    startBounds = target->getBounds();

    if (constrainer != nullptr)
        constrainer->resizeStart();
}

void OxJuceResizableCornerComponent::mouseDrag (const juce::MouseEvent& event)
{
    const auto now = juce::Time::getMillisecondCounterHiRes();

    if (now < nextStepTime)
        return;

    nextStepTime = now + kStepInterval;

    if (target == nullptr)
        return;

    const auto bounds = startBounds.withSize (startBounds.getWidth() + event.getDistanceFromDragStartX(),
                                              startBounds.getHeight() + event.getDistanceFromDragStartY());

    if (constrainer != nullptr)
        constrainer->setBoundsForComponent (target, bounds, false, false, true, true);
    else if (auto* const placer = target->getPositioner())
        placer->applyNewBounds (bounds);
    else
        target->setBounds (bounds);
}

void OxJuceResizableCornerComponent::mouseUp (const juce::MouseEvent&)
{
    if (constrainer != nullptr)
        constrainer->resizeEnd();
}

bool OxJuceResizableCornerComponent::hitTest (int x, int y)
{
    if (getWidth() < 1)
        return false;

    return y >= getHeight() - getHeight() * x / getWidth() - getHeight() / 4;
}

void OxJuceResizableCornerComponent::draw (int)
{
    if (surface == nullptr)
        return;

    const auto size = getDrawnLocalBounds().toFloat();
    const auto shade = 0.075f * std::min (size.getWidth(), size.getHeight());

    for (const auto place : { 0.0f, 0.3f, 0.6f, 0.9f })
    {
        const auto x = place * size.getWidth(), y = place * size.getHeight();
        const auto ridge = [&] (float shift, juce::Colour grey)
        {
            surface.get()->glState.pending.colour = grey;
            drawLine (juce::Point (x + shift, size.getHeight() + 1.0f).toInt(),
                      juce::Point (size.getWidth() + 1.0f, y + shift).toInt());
        };
        ridge (0.0f, kLight);
        ridge (shade, kDark);
    }
}
