// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/GlState.h"

using namespace juce::gl;

namespace
{

constexpr float kPerByte = 0.003921569f;   // a colour's channel as OpenGL counts it

void enable (GLenum capability, bool on)
{
    on ? glEnable (capability) : glDisable (capability);
}

}   // namespace

void GlStateCache::apply()
{
    const auto differs = [this] (auto field) { return ! isKnown || pending.*field != applied.*field; };

    for (auto* const extent : { &pending.lineWidth, &pending.pointSize })
        if (*extent <= 0.0f)
            *extent = 1.0f;

    if (differs (&GlState::colour))
        glColor4f (pending.colour.getRed() * kPerByte, pending.colour.getGreen() * kPerByte,
                   pending.colour.getBlue() * kPerByte, pending.colour.getAlpha() * kPerByte);

    if (differs (&GlState::blending))
        enable (GL_BLEND, pending.blending);

    if (differs (&GlState::texturing))
        enable (GL_TEXTURE_2D, pending.texturing);

    if (differs (&GlState::scissor))
        enable (GL_SCISSOR_TEST, pending.scissor);

    if (differs (&GlState::blendSource) || differs (&GlState::blendDestination))
        glBlendFunc (pending.blendSource, pending.blendDestination);

    if (differs (&GlState::lineWidth))
        glLineWidth (pending.lineWidth);

    if (differs (&GlState::pointSize))
        glPointSize (pending.pointSize);

    applied = pending;
    isKnown = true;
}

void GlStateCache::reset()
{
    pending = {};
    apply();
    pending.colour = juce::Colours::white;
    pending.blending = true;
    pending.blendSource = GL_SRC_ALPHA;
    pending.blendDestination = GL_ONE_MINUS_SRC_ALPHA;
    pending.lineWidth = 1.0f;
}

void GlStateCache::invalidate()
{
    isKnown = false;
    reset();
}
