// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxOglComponentUser.h"

#include <juce_opengl/juce_opengl.h>

/** An image to draw with. Its first use gives OpenGL a copy, which goes with the context; the image stays decoded, for a
    copy in the next one. */
class OxOglComponentTexture : public OxOglComponentUser
{
public:
    explicit OxOglComponentTexture (const juce::String& textureName = {}) : name (textureName) {}
    ~OxOglComponentTexture() override;

    /** Takes an embedded image, or changes nothing if there is none [message thread].
        @param resourceName in full, like "ButtonMid_png" */
    void loadFromResource (const juce::String& resourceName);

    /** Takes another image [message thread]; the same one again costs nothing. */
    void setImage (const juce::Image& newImage);
    juce::Image getImage() const;

    /** Makes the GL texture if need be, and wants it for what is drawn next. Without an image or a current context nothing
        happens [render thread]. */
    void bind (OxOglComponent* target);

    /** Draws the whole image over `area`, which the caller has bound [render thread]. */
    void drawQuad (juce::Rectangle<float> area);

    /** @returns false, having done nothing, off the context's thread or without a GL texture [any thread]. */
    bool deleteTexture();

    /** The next `bind` makes the texture anew [any thread]. */
    void markForReload() noexcept { needsReload = true; }
    bool hasTexture() const noexcept { return textureId > 0; }

    const juce::String& getName() const noexcept { return name; }

    /** One pixel of the image in texture coordinates, once there is a GL texture [render thread]. */
    float getPixelWidth() const noexcept { return pixelWidth; }
    float getPixelHeight() const noexcept { return pixelHeight; }

    // Set before the first `bind`:
    int filter = 1;   // above 0 linear, otherwise nearest
    bool blend = true;
    juce::uint32 blendSource = juce::gl::GL_SRC_ALPHA, blendDestination = juce::gl::GL_ONE_MINUS_SRC_ALPHA;

private:
    friend class OxOglComponent;

    void forgetContext();
    void create (const juce::Image& source, OxOglComponent& target);

    float pixelWidth = 0.0f, pixelHeight = 0.0f;
    float maxU = 1.0f, maxV = 1.0f;   // where the image ends in the texture
    juce::Image image;
    juce::CriticalSection imageLock;   // guards `image` alone, and is held for a copy
    Relaxed<juce::uint32> textureId = 0;
    Relaxed<OxOglComponent*> listedIn = nullptr;   // whose context holds the GL texture
    juce::String name;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (OxOglComponentTexture)
};
