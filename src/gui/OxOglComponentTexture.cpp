// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/OxOglComponentTexture.h"

#include "gui/Images.h"
#include "gui/OxJuceEditorBase.h"

using namespace juce::gl;

namespace
{

/** The pixels in rows without gaps. The toolkit keeps colours multiplied by their alpha; what is blended by alpha wants them
    straight. */
juce::Image prepareForUpload (const juce::Image& source)
{
    auto straight = source.createCopy();

    if (source.getFormat() != juce::Image::ARGB)
        return straight;

    const juce::Image::BitmapData pixels (straight, juce::Image::BitmapData::readWrite);

    for (int y = 0; y < pixels.height; ++y)
        for (int x = 0; x < pixels.width; ++x)
            reinterpret_cast<juce::PixelARGB*> (pixels.getPixelPointer (x, y))->unpremultiply();

    return straight;
}

/** How pixels lie in an image, and what OpenGL makes of them: alpha alone takes its colour from the pending state. */
struct TransferFormat
{
    explicit TransferFormat (juce::Image::PixelFormat image)
    {
        if (image == juce::Image::RGB)
            pixels = GL_BGR_EXT;
        else if (image == juce::Image::SingleChannel)
            pixels = texture = GL_ALPHA;
    }

    GLenum pixels = GL_BGRA_EXT;
    GLenum texture = 4;   // four components
};

}   // namespace

OxOglComponentTexture::~OxOglComponentTexture()
{
    if (auto* const holder = listedIn.get())
        holder->removeTexture (*this);
}

void OxOglComponentTexture::loadFromResource (const juce::String& resourceName)
{
    if (const auto found = images::loadResource (resourceName); found.isValid())
    {
        name = resourceName;
        setImage (found);
    }
}

void OxOglComponentTexture::setImage (const juce::Image& newImage)
{
    {
        const juce::ScopedLock lock (imageLock);

        if (image == newImage)
            return;

        image = newImage;
    }

    needsReload = true;
}

juce::Image OxOglComponentTexture::getImage() const
{
    const juce::ScopedLock lock (imageLock);
    return image;
}

void OxOglComponentTexture::bind (OxOglComponent* target)
{
    if (target == nullptr)
        return;

    setOglEditor (target->getOglEditor());

    if (! target->isContextCurrent())
        return;

    if (auto* const holder = listedIn.get(); holder != nullptr && holder != target)
    {
        holder->removeTexture (*this);   // its context keeps the GL texture to its end
        textureId = 0;
    }

    if (textureId > 0 && needsReload)
    {
        target->removeTexture (*this);
        deleteTexture();
        needsReload = false;
    }

    if (textureId == 0)
        if (const auto source = getImage(); source.getWidth() > 0 && source.getHeight() > 0)
            create (source, *target);

    if (textureId == 0)
        return;

    auto& pending = target->glState.pending;
    pending.texturing = true;
    pending.blending = blend;

    if (blend)
    {
        pending.blendSource = blendSource;
        pending.blendDestination = blendDestination;
    }

    glBindTexture (GL_TEXTURE_2D, textureId);
}

void OxOglComponentTexture::create (const juce::Image& source, OxOglComponent& target)
{
    const auto straight = prepareForUpload (source);
    const juce::Image::BitmapData pixels (straight, juce::Image::BitmapData::readOnly);
    const TransferFormat format (straight.getFormat());
    pixelWidth = 1.0f / static_cast<float> (pixels.width);
    pixelHeight = 1.0f / static_cast<float> (pixels.height);

    if (! target.isContextCurrent())
        return;

    GLuint created = 0;
    glGenTextures (1, &created);

    if (created == 0)
    {
        juce::Logger::writeToLog ("ERROR: generateTexture failed");
        return;
    }

    textureId = created;
    target.addTexture (*this);
    glBindTexture (GL_TEXTURE_2D, created);
    glTexImage2D (GL_TEXTURE_2D, 0, static_cast<GLint> (format.texture), pixels.width, pixels.height, 0, format.pixels,
                  GL_UNSIGNED_BYTE, pixels.data);
    glTexParameteri (GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP);
    glTexParameteri (GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP);
    glTexParameteri (GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, filter > 0 ? GL_LINEAR : GL_NEAREST);
    glTexParameteri (GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, filter > 0 ? GL_LINEAR : GL_NEAREST);
    glPixelStorei (GL_UNPACK_ALIGNMENT, 4);
}

void OxOglComponentTexture::drawQuad (juce::Rectangle<float> area)
{
    auto* const target = surface.get();

    if (target == nullptr)
        return;

    target->applyGlState();
    glBegin (GL_QUADS);
    glTexCoord2f (0.0f, maxV);
    glVertex2f (area.getX(), area.getBottom());
    glTexCoord2f (0.0f, 0.0f);
    glVertex2f (area.getX(), area.getY());
    glTexCoord2f (maxU, 0.0f);
    glVertex2f (area.getRight(), area.getY());
    glTexCoord2f (maxU, maxV);
    glVertex2f (area.getRight(), area.getBottom());
    glEnd();
}

void OxOglComponentTexture::forgetContext()
{
    if (textureId > 0)
        deleteTexture();

    textureId = 0;   // also where the context went without a warning
    listedIn = nullptr;
}

bool OxOglComponentTexture::deleteTexture()
{
    if (auto* const target = surface.get(); target != nullptr && ! target->isContextCurrent())
        return false;

    if (textureId == 0)
    {
        juce::Logger::writeToLog ("ERROR: deleteTexture failed");
        return false;
    }

    const GLuint old = textureId;
    glDeleteTextures (1, &old);
    textureId = 0;
    return true;
}
