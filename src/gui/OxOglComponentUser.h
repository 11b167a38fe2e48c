// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/OxJuceChannelUser.h"
#include "platform/Relaxed.h"

#include <memory>

#include <juce_graphics/juce_graphics.h>

class OxJuceEditorBase;
class OxOglComponent;

/** What it takes to draw: an editor, its surface and the primitives. Elements have it from here, and so have fonts, textures
    and the surface. With no surface nothing is drawn. Coordinates are whole pixels of the drawer, origin top left. */
class OxOglComponentUser : public OxJuceChannelUser
{
public:
    /** Held by a frame while it is drawn, and by whoever replaces what a frame reads. */
    using SceneLock = std::shared_ptr<juce::CriticalSection>;

    /** Holds back the drawing of a surface while what a frame reads is replaced: texts, images, lists of anything
        [message thread]. It waits for the frame in progress, and may stand within another one. Nothing is waited for and no
        listener called while it is held. */
    class ScopedChange
    {
    public:
        /** A drawer without a surface is not drawn, and holds back nothing. */
        explicit ScopedChange (const OxOglComponentUser& drawer) : ScopedChange (drawer.sceneLock) {}
        explicit ScopedChange (SceneLock lockToHold);
        ~ScopedChange();

        ScopedChange (const ScopedChange&) = delete;
        ScopedChange& operator= (const ScopedChange&) = delete;

    private:
        const SceneLock lock;
    };

    OxOglComponentUser() = default;
    virtual ~OxOglComponentUser() = default;

    /** Binds to an editor and its surface, or with null to none [message thread]. Waits for the frame in progress, and may
        come when the old editor is gone. */
    virtual void setOglComponent (OxJuceEditorBase* newEditor);

    OxJuceEditorBase* getOglEditor() const noexcept { return editor; }
    OxOglComponent* getSurface() const noexcept { return surface; }

protected:
    /** Takes editor and surface with no wait [render thread]. */
    void setOglEditor (OxJuceEditorBase* newEditor) noexcept;

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
    Relaxed<bool> needsReload = true;              // of a texture: the image or the context is another one

private:
    SceneLock sceneLock;   // that of the surface, which it may outlive [message thread]
};
