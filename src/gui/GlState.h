// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_opengl/juce_opengl.h>

/** What a primitive wants of OpenGL. */
struct GlState
{
    juce::Colour colour { juce::uint32 { 0 } };
    bool blending = false, texturing = false, scissor = false;
    juce::uint32 blendSource = 0, blendDestination = 0;
    float lineWidth = 0.0f, pointSize = 0.0f;   // pixels; 0 or less stands for 1
};

/** Keeps what OpenGL has been told, so that a primitive costs only the calls that change something [render thread, with the
    context current].

    Drawers write `pending` and apply it before each primitive and each vertex. */
class GlStateCache
{
public:
    /** Tells OpenGL where `pending` differs from what it has. Between glBegin and glEnd only the colour may differ. */
    void apply();

    /** Takes `pending` to zeros for a moment, and then to what an element starts with: white, blending by alpha, no texture,
        no scissor, lines of one pixel. */
    void reset();

    /** Forgets what OpenGL has, so that everything is told anew, and resets. */
    void invalidate();

    /** Leaves `pending` in the end as it was here. */
    class ScopedPending
    {
    public:
        explicit ScopedPending (GlStateCache& cacheToKeep) : cache (cacheToKeep), saved (cacheToKeep.pending) {}
        ~ScopedPending() { cache.pending = saved; }

        ScopedPending (const ScopedPending&) = delete;
        ScopedPending& operator= (const ScopedPending&) = delete;

    private:
        GlStateCache& cache;
        const GlState saved;
    };

    GlState pending;

private:
    GlState applied;
    bool isKnown = false;   // OpenGL has what `applied` says
};
