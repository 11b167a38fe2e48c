// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxOglComponentUser.h"

#include "gui/OxJuceEditorBase.h"

using namespace juce::gl;

void OxOglComponentUser::setOglComponent (OxJuceEditorBase* newEditor)
{
    if (newEditor == editor)
        return;

    const auto newLock = newEditor != nullptr ? newEditor->surface.getSceneLock() : nullptr;
    const ScopedChange leaving (sceneLock), joining (newLock);
    setOglEditor (newEditor);
    sceneLock = newLock;
}

void OxOglComponentUser::setOglEditor (OxJuceEditorBase* newEditor) noexcept
{
    editor = newEditor;
    surface = newEditor != nullptr ? &newEditor->surface : nullptr;
}

OxOglComponentUser::ScopedChange::ScopedChange (SceneLock lockToHold) : lock (std::move (lockToHold))
{
    if (lock != nullptr)
        lock->enter();
}

OxOglComponentUser::ScopedChange::~ScopedChange()
{
    if (lock != nullptr)
        lock->exit();
}

void OxOglComponentUser::drawFilledRect (juce::Rectangle<int> area)
{
    if (auto* const target = surface.get())
    {
        target->applyGlState();
        glRecti (area.getX(), area.getY(), area.getRight(), area.getBottom());
    }
}

void OxOglComponentUser::drawRectOutline (juce::Rectangle<int> area)
{
    drawFilledRect (area.withHeight (1));
    drawFilledRect (area.withTop (area.getBottom() - 1));
    drawFilledRect (area.withWidth (1));
    drawFilledRect (area.withLeft (area.getRight() - 1));
}

void OxOglComponentUser::drawLine (juce::Point<int> from, juce::Point<int> to)
{
    if (auto* const target = surface.get())
        drawLine (from, target->glState.pending.colour, to, target->glState.pending.colour);
}

void OxOglComponentUser::drawLine (juce::Point<int> from, juce::Colour fromColour, juce::Point<int> to,
                                   juce::Colour toColour)
{
    auto* const target = surface.get();

    if (target == nullptr)
        return;

    target->applyGlState();
    glBegin (GL_LINES);
    target->addVertex (from, fromColour);
    target->addVertex (to, toColour);
    glEnd();
}

void OxOglComponentUser::drawGradientQuad (juce::Rectangle<int> area, juce::Colour topLeft, juce::Colour topRight,
                                           juce::Colour bottomLeft, juce::Colour bottomRight)
{
    auto* const target = surface.get();

    if (target == nullptr)
        return;

    target->applyGlState();
    glBegin (GL_QUADS);
    target->addVertex (area.getTopLeft(), topLeft);
    target->addVertex (area.getTopRight(), topRight);
    target->addVertex (area.getBottomRight(), bottomRight);
    target->addVertex (area.getBottomLeft(), bottomLeft);
    glEnd();
}
