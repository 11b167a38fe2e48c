// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxJuceGridComponent.h"
#include "gui/ResizeMessage.h"

#include <cmath>
#include <utility>

namespace
{

juce::Rectangle<int> rounded (juce::Rectangle<float> exact)
{
    const auto round = [] (float value) { return static_cast<int> (std::floor (value + 0.5f)); };
    return { round (exact.getX()), round (exact.getY()), round (exact.getWidth()), round (exact.getHeight()) };
}

}   // namespace

void OxJuceGridComponent::setAnimation (bool on, MoveAxes axes, int speed)
{
    const juce::ScopedLock scope (moveLock);
    animated = on;
    moveAxes = axes;
    moveSpeed = speed;
}

bool OxJuceGridComponent::setCellMoving (int column, int row, bool moves)
{
    if (! hasCell (column, row))
        return false;

    cellAt (column, row).moving = moves;
    return true;
}

void OxJuceGridComponent::startMove (Placed& placed, juce::Rectangle<int> present, juce::Rectangle<int> bounds)
{
    const juce::ScopedLock scope (moveLock);

    if (! placed.onTheWay)
        placed.currentRect = present.toFloat();

    placed.targetRect = bounds;
    placed.onTheWay |= bounds != present;
    animating |= placed.onTheWay;
}

void OxJuceGridComponent::advanceMoves()
{
    const juce::ScopedLock scope (moveLock);

    if (! std::exchange (animating, false))
        return;

    for (auto& row : cells)
    {
        for (auto& cell : row)
        {
            advance (cell.main);
            advance (cell.extra);
            animating |= cell.main.onTheWay || cell.extra.onTheWay;
        }
    }
}

void OxJuceGridComponent::advance (Placed& placed) const
{
    if (! placed.onTheWay)
        return;

    const auto kept = moveSpeed == 0 ? 0.95f : moveSpeed == 1 ? 0.8f : 0.0f;
    const auto target = placed.targetRect.toFloat();
    const auto across = moveAxes == vertical ? 0.0f : kept, down = moveAxes == horizontal ? 0.0f : kept;
    const auto step = [] (float from, float to, float k) { return (1.0f - k) * to + k * from; };
    auto& current = placed.currentRect;
    current = { step (current.getX(), target.getX(), across), step (current.getY(), target.getY(), down),
                step (current.getWidth(), target.getWidth(), across),
                step (current.getHeight(), target.getHeight(), down) };
    const auto bounds = rounded (current);
    placed.onTheWay = bounds != placed.targetRect;
    (new ResizeMessage (placed.component, bounds))->post();
}
