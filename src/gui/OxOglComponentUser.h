// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/OxJuceChannelUser.h"
#include "platform/Relaxed.h"

#include <juce_graphics/juce_graphics.h>

class OxJuceEditorBase;
class OxOglComponent;

/** Base of everything that draws: textures, fonts, elements, the surface itself. It knows its editor and the editor's
    surface; without them drawing does nothing. Coordinates are whole pixels of the drawer, origin top left. */
class OxOglComponentUser : public OxJuceChannelUser
{
public:
    OxOglComponentUser() = default;
    virtual ~OxOglComponentUser() = default;

    /** Binds to an editor and its surface, or with null to none [message thread]. Waits for a drawing in progress. */
    virtual void setOglComponent (OxJuceEditorBase* newEditor);

    OxJuceEditorBase* getOglEditor() const noexcept { return editor; }
    OxOglComponent* getSurface() const noexcept { return surface; }

protected:
    /** Says for as long as it lives that its owner draws [render thread]. */
    class ScopedDrawing
    {
    public:
        explicit ScopedDrawing (OxOglComponentUser& drawer) : flag (drawer.drawing) { flag = true; }
        ~ScopedDrawing() { flag = false; }

        ScopedDrawing (const ScopedDrawing&) = delete;
        ScopedDrawing& operator= (const ScopedDrawing&) = delete;

    private:
        std::atomic<bool>& flag;
    };

    /** Sleeps, a millisecond at a time, until this is not being drawn [message thread]. */
    void waitWhileDrawing() const;

    // Primitives in the pending state [render thread] ------------------------------------------------------------------

    /** A frame of one pixel, inside the rectangle. */
    void drawRectOutline (juce::Rectangle<int> area);
    void drawFilledRect (juce::Rectangle<int> area);
    void drawLine (juce::Point<int> from, juce::Point<int> to);
    void drawLine (juce::Point<int> from, juce::Colour fromColour, juce::Point<int> to, juce::Colour toColour);
    void drawGradientQuad (juce::Rectangle<int> area, juce::Colour topLeft, juce::Colour topRight,
                           juce::Colour bottomLeft, juce::Colour bottomRight);

    Relaxed<OxOglComponent*> surface = nullptr;    // not owned
    Relaxed<OxJuceEditorBase*> editor = nullptr;   // not owned
    std::atomic<bool> drawing { false };           // set around each draw
    Relaxed<bool> needsReload = true;              // of a texture: the image or the context is another one
};
