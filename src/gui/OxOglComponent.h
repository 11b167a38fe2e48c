// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/GlState.h"
#include "gui/OxDrawnChildren.h"
#include "gui/OxDrawnState.h"
#include "gui/OxJuceOglFont.h"
#include "gui/OxOglComponentTexture.h"
#include "gui/OxOglComponentUser.h"
#include "gui/OxReadWriteLock.h"
#include "platform/AnimationClock.h"
#include "platform/GlWindow.h"

#include <array>

/** An editor from edge to edge, as fixed-function OpenGL draws it.

    The toolkit lays the children out and brings them mouse and keys, but paints none: what is to be seen is an
    `OxOglChildComponent`. Frames come at their own pace, some 66 a second at best. Nothing of OpenGL is common to two
    editors. What OpenGL complains of is ignored, and where it gives no context the window stays empty. */
class OxOglComponent : public juce::Component, public OxOglComponentUser, public juce::OpenGLRenderer
{
public:
    OxOglComponent();
    ~OxOglComponent() override;

    /** Lets frames be drawn, from now on for ever [message thread, when the editor is built]. */
    void enableRendering();

    /** On return no frame is under way, and none will come [message thread]. Only then may go what is drawn, so an editor's
        outermost destructor begins with it. */
    virtual void stopRenderThread();

    /** Has the context set up anew before the next frame, as after a resize [message thread]. */
    void setViewportDirty() noexcept { viewportDirty = true; }

    const SceneLock& getSceneLock() const noexcept { return scene; }

    /** Draws this behind everything. @param texture not owned; null for none */
    void setBackgroundTexture (OxOglComponentTexture* texture);

    /** @param size 10, 11, 12, 14, 18, 20, 22, 24 or 28; any other gives the 14-point font */
    OxJuceOglFont* getFont (int size) noexcept;

    /** @returns whether this thread may call OpenGL for this surface. */
    bool isContextCurrent() const noexcept;

    // For drawers [render thread] --------------------------------------------------------------------------------------

    void applyGlState();
    void resetGlState();
    void invalidateGlState();

    /** A vertex of its own colour, between glBegin and glEnd. */
    void addVertex (juce::Point<int> position, juce::Colour colour);

    /** Textures say when they have come to hold a GL texture, and when they no longer do [any thread]. */
    void addTexture (OxOglComponentTexture& texture);
    void removeTexture (OxOglComponentTexture& texture);

    GlStateCache glState;
    OxReadWriteLock renderLock;   // read by a frame and by `updateGui`, written by whoever tears down

    // OxOglComponentUser: also loads the nine fonts anew [message thread]
    void setOglComponent (OxJuceEditorBase* newEditor) override;

    // juce::Component
    void childrenChanged() override;

    // juce::OpenGLRenderer
    void newOpenGLContextCreated() override;
    void renderOpenGL() override;
    void openGLContextClosing() override;

protected:
    /** Has OpenGL count as the toolkit does: in pixels, to the right and down. */
    virtual void setupViewport();
    virtual void drawBackground (int elapsedMs);

private:
    void waitForTurn();
    void drawFrame (OxJuceEditorBase& owner);

    static constexpr std::array<int, 9> kFontSizes { 10, 11, 12, 14, 18, 20, 22, 24, 28 };

    OxDrawnState drawnState { *this };
    OxDrawnChildren drawnChildren { *this };
    const SceneLock scene = std::make_shared<juce::CriticalSection>();
    Relaxed<OxOglComponentTexture*> backgroundTexture = nullptr;   // not owned
    AnimationClock frameClock;
    double turnStart = 0.0;                  // milliseconds of the high-resolution counter [render thread]
    juce::WaitableEvent turnsEnd { true };   // nobody waits for the next turn any more
    juce::CriticalSection textureLock;
    std::vector<OxOglComponentTexture*> textureList;   // to be told when the context goes, each once
    std::array<OxJuceOglFont, kFontSizes.size()> fonts;
    platform::GlWindow glWindow;                 // [render thread]
    std::atomic<bool> viewportDirty { false };   // in order with the size that the resize has written
    Relaxed<bool> renderEnabled = false;
    juce::OpenGLContext context;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (OxOglComponent)
};
