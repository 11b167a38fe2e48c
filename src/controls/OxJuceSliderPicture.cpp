// SPDX-License-Identifier: GPL-3.0-or-later
// What a slider looks like, by OpenGL and by the toolkit's own painting.
#include "controls/MultipliedImage.h"
#include "controls/OxJuceSlider.h"
#include "gui/OxOglComponent.h"

namespace
{

constexpr int kLitTime = 50;             // milliseconds from the pointer's leaving until the thumb begins to dim
constexpr float kDimmingTime = 200.0f;   // milliseconds

int part (int length, float share)
{
    return static_cast<int> (static_cast<float> (length) * share);
}

/** A colour at a value from 0 to 1, where it may change to another one at 1. */
juce::Colour mixed (juce::Colour colour, juce::Colour atOne, float value)
{
    return colour.isTransparent() || atOne.isTransparent() ? colour : colour.interpolatedWith (atOne, value);
}

}   // namespace

/** All that a picture of the slider takes, in its own pixels. */
struct OxJuceSlider::Picture
{
    juce::Rectangle<int> track, bar, thumb;
    juce::Colour trackColour, barColour, thumbColour;
};

OxJuceSlider::Picture OxJuceSlider::getPicture (juce::Rectangle<int> bounds, juce::Rectangle<int> thumb,
                                                float light) const
{
    const auto level = getValue();
    Picture picture;
    picture.track = trackBounds - bounds.getPosition();
    picture.bar = getBar (picture.track, thumb, level);
    picture.trackColour = mixed (trackColour, trackColourAtOne, level);
    picture.barColour = mixed (barColour, barColourAtOne, level);

    const auto alpha = (thumbBrightAlpha - thumbDimAlpha) * light + thumbDimAlpha;
    picture.thumbColour = thumbFadesColour ? thumbColour.get().interpolatedWith (thumbHoverColour, light)
                                           : thumbColour.get().withAlpha (getOpacity() * alpha);

    // The control is longer than the track by the thumb, so the thumb's way begins at the control's own edge.
    if (orientation == Orientation::horizontal)
        thumb.setX (part (picture.track.getWidth() - 1, level));
    else if (orientation == Orientation::vertical)
        thumb.setY (part (picture.track.getHeight() - 1, 1.0f - level));

    picture.thumb = thumb + thumbOffset.get();
    return picture;
}

juce::Rectangle<int> OxJuceSlider::getBar (juce::Rectangle<int> track, juce::Rectangle<int> thumb, float level) const
{
    if (orientation == Orientation::horizontal)
    {
        const auto filled = part (track.getWidth(), level);

        if (inverted)
            return track.withTrimmedLeft (filled);

        if (! bipolar)
            return track.withWidth (filled);

        const auto half = part (thumb.getWidth(), 0.5f);
        const auto centre = half + part (track.getWidth(), 0.5f), end = filled + half;
        return juce::Rectangle<int>::leftTopRightBottom (std::min (centre, end), 0, std::max (centre, end),
                                                         track.getHeight());
    }

    if (orientation == Orientation::vertical)
    {
        const auto empty = part (track.getHeight(), 1.0f - level);

        if (! bipolar)
            return inverted ? track.withHeight (empty) : track.withTrimmedTop (empty);

        const auto centre = part (thumb.getHeight() + track.getHeight(), 0.5f);
        const auto end = empty + part (thumb.getHeight(), 0.5f);
        return juce::Rectangle<int>::leftTopRightBottom (0, std::min (centre, end), track.getWidth(),
                                                         std::max (centre, end));
    }

    return {};
}

float OxJuceSlider::stepThumbFade (double moment)
{
    fadeClock.stepTo (moment);

    if (hovered && ! isLocked())
        litTime = fadeClock.getTime();

    const auto sinceLit = static_cast<float> (fadeClock.getTime() - litTime);
    return juce::jlimit (0.0f, 1.0f, 1.0f - (sinceLit - kLitTime) / kDimmingTime);
}

void OxJuceSlider::draw (int)
{
    auto* const target = surface.get();
    const auto bounds = getDrawnBounds();

    if (target == nullptr || bounds.isEmpty())
        return;

    const auto thumb = getThumbSize();

    if (! thumb.isEmpty())
        thumbLight = stepThumbFade (AnimationClock::read());

    const auto picture = getPicture (bounds, thumb, thumbLight);
    auto& pending = target->glState.pending;
    pending.texturing = false;

    for (const auto& [colour, area] :
         { std::pair (picture.trackColour, picture.track), { picture.barColour, picture.bar } })
    {
        pending.colour = colour;

        if (! colour.isTransparent())
            drawFilledRect (area);
    }

    texture.bind (target);
    pending.colour = picture.thumbColour;

    if (! thumb.isEmpty() && texture.hasTexture())
        texture.drawQuad (picture.thumb.toFloat());
}

void OxJuceSlider::paint (juce::Graphics& graphics)
{
    const auto image = texture.getImage();
    const auto light = hovered && ! isLocked() ? 1.0f : thumbLight.get();
    const auto picture = getPicture (getBounds(), image.getBounds(), light);
    graphics.setColour (picture.trackColour);
    graphics.fillRect (picture.track);
    graphics.setColour (picture.barColour);
    graphics.fillRect (picture.bar);

    if (image.isNull())
        return;

    graphics.setImageResamplingQuality (juce::Graphics::lowResamplingQuality);
    graphics.setOpacity (picture.thumbColour.getFloatAlpha());
    graphics.drawImage (multiplied (image, picture.thumbColour.withAlpha (1.0f)), picture.thumb.toFloat());
}
