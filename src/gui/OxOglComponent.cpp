// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxOglComponent.h"

#include "gui/OxJuceEditorBase.h"
#include "platform/VerticalSync.h"

using namespace juce::gl;

using LockMode = OxScopedReadWriteLock::Mode;

namespace
{

constexpr double kTurnLength = 15.0;   // milliseconds from one turn of the render thread to the next
constexpr double kMinWait = 1.0;       // milliseconds, after however long a turn
constexpr int kDefaultFontSize = 14;

}   // namespace

OxOglComponent::OxOglComponent()
{
    context.setRenderer (this);
    context.setComponentPaintingEnabled (false);
    context.setContinuousRepainting (true);   // at the pace of `waitForTurn`
    context.setPixelFormat (juce::OpenGLPixelFormat (8, 8, 16, 0));
    context.attachTo (*this);
}

OxOglComponent::~OxOglComponent()
{
    stopRenderThread();
    drawnChildren.leaveSurface();
}

void OxOglComponent::stopRenderThread()
{
    turnsEnd.signal();
    const OxScopedReadWriteLock lock (renderLock, LockMode::write, true, __func__);
    context.detach();
}

void OxOglComponent::enableRendering()
{
    const ScopedChange change (scene);   // with all that the editor has built so far
    renderEnabled = true;
}

void OxOglComponent::setBackgroundTexture (OxOglComponentTexture* texture)
{
    const ScopedChange change (scene);
    backgroundTexture = texture;
}

OxJuceOglFont* OxOglComponent::getFont (int size) noexcept
{
    const auto find = [] (int wanted) { return std::find (kFontSizes.begin(), kFontSizes.end(), wanted); };
    const auto found = find (size) != kFontSizes.end() ? find (size) : find (kDefaultFontSize);
    return &fonts[static_cast<std::size_t> (found - kFontSizes.begin())];
}

bool OxOglComponent::isContextCurrent() const noexcept
{
    return juce::OpenGLContext::getCurrentContext() == &context;
}

void OxOglComponent::setOglComponent (OxJuceEditorBase* newEditor)
{
    OxOglComponentUser::setOglComponent (newEditor);
    const ScopedChange change (scene);

    for (std::size_t index = 0; index < fonts.size(); ++index)
        fonts[index].load ("FONT_FontText" + juce::String (kFontSizes[index]) + "_png", newEditor);
}

void OxOglComponent::childrenChanged()
{
    drawnChildren.update (*this);
}

// State ---------------------------------------------------------------------------------------------------------------

void OxOglComponent::applyGlState()
{
    jassert (isContextCurrent());
    glState.apply();
}

void OxOglComponent::resetGlState()
{
    jassert (isContextCurrent());
    glState.reset();
}

void OxOglComponent::invalidateGlState()
{
    jassert (isContextCurrent());
    glState.invalidate();
}

void OxOglComponent::addVertex (juce::Point<int> position, juce::Colour colour)
{
    glState.pending.colour = colour;
    applyGlState();
    glVertex2i (position.x, position.y);
}

void OxOglComponent::addTexture (OxOglComponentTexture& texture)
{
    const juce::ScopedLock lock (textureLock);

    if (std::find (textureList.begin(), textureList.end(), &texture) == textureList.end())
        textureList.push_back (&texture);

    texture.listedIn = this;
}

void OxOglComponent::removeTexture (OxOglComponentTexture& texture)
{
    const juce::ScopedLock lock (textureLock);
    textureList.erase (std::remove (textureList.begin(), textureList.end(), &texture), textureList.end());
    texture.listedIn = nullptr;
}

// The context ---------------------------------------------------------------------------------------------------------

void OxOglComponent::newOpenGLContextCreated()
{
    platform::ignoreVerticalSync();   // the pace is ours
    setupViewport();
    glMatrixMode (GL_MODELVIEW);
    glLoadIdentity();
    glClearColor (0.0f, 0.0f, 0.0f, 1.0f);
    glEnable (GL_LINE_SMOOTH);
    glState.pending.blendSource = GL_SRC_ALPHA;
    glState.pending.blendDestination = GL_ONE_MINUS_SRC_ALPHA;
    glHint (GL_LINE_SMOOTH_HINT, GL_NICEST);
    glTexEnvf (GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);   // the pending colour tints textures
    glPixelStorei (GL_UNPACK_ALIGNMENT, 4);

    const juce::ScopedLock lock (textureLock);

    for (auto* const texture : textureList)
        texture->markForReload();
}

void OxOglComponent::openGLContextClosing()
{
    const juce::ScopedLock lock (textureLock);

    for (auto* const texture : textureList)
        texture->forgetContext();

    textureList.clear();
}

void OxOglComponent::setupViewport()
{
    const auto bounds = drawnState.getBounds();
    const auto scale = context.getRenderingScale();
    glViewport (0, 0, juce::roundToInt (scale * bounds.getWidth()), juce::roundToInt (scale * bounds.getHeight()));
    glMatrixMode (GL_PROJECTION);
    glLoadIdentity();

    if (! bounds.isEmpty())
    {
        const auto area = bounds.toFloat();
        // clang-format off
        const GLfloat toClipSpace[] { 2.0f / area.getWidth(),  0.0f, 0.0f, 0.0f,
                                      0.0f, -2.0f / area.getHeight(), 0.0f, 0.0f,
                                      0.0f,  0.0f, 1.0f, 0.0f,
                                     -1.0f,  1.0f, 0.0f, 1.0f };
        // clang-format on
        glLoadMatrixf (toClipSpace);
        glTranslatef (-area.getX(), -area.getY(), 0.0f);
    }

    glMatrixMode (GL_MODELVIEW);
}

// Frames --------------------------------------------------------------------------------------------------------------

void OxOglComponent::waitForTurn()
{
    const auto elapsed = juce::Time::getMillisecondCounterHiRes() - turnStart;
    turnsEnd.wait (juce::roundToInt (std::max (kMinWait, kTurnLength - elapsed)));
    turnStart = juce::Time::getMillisecondCounterHiRes();
}

void OxOglComponent::renderOpenGL()
{
    waitForTurn();
    glWindow.deliverEventsReadAhead();

    if (glWindow.hasGone())
        return;

    glClear (GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);

    auto* const owner = editor.get();

    if (! renderEnabled || owner == nullptr)
        return;

    const OxScopedReadWriteLock lock (renderLock, LockMode::read, false, __func__);

    if (lock.isGained())
        drawFrame (*owner);
}

void OxOglComponent::drawFrame (OxJuceEditorBase& owner)
{
    const OxJuceProfilerItem::Scope profile (owner.getProfilerItem (OxJuceEditorBase::profilesRender));

    if (owner.getTimerInterval() <= 0)
        owner.startGuiTimer();

    if (viewportDirty.exchange (false))
        newOpenGLContextCreated();

    const juce::ScopedLock lock (*scene);
    invalidateGlState();
    glLoadIdentity();
    owner.onPreRender();

    const auto elapsedMs = static_cast<int> (frameClock.stepTo (AnimationClock::read()));
    drawBackground (elapsedMs);
    drawnChildren.renderAll (elapsedMs);
    resetGlState();
    glLoadIdentity();
    owner.drawOverlays();
    resetGlState();   // the next clearing knows no scissor
}

void OxOglComponent::drawBackground (int)
{
    if (auto* const texture = backgroundTexture.get())
    {
        texture->bind (this);

        if (texture->hasTexture())
            texture->drawQuad (drawnState.getBounds().withZeroOrigin().toFloat());
    }
}
