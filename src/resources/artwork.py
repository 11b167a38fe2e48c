# SPDX-License-Identifier: GPL-3.0-or-later
"""The window's pictures: the title, the frames that buttons stretch, the slider's knob.

All are drawn many times too large and averaged, so that edges get their exact coverage. Coordinates are pixels of
the finished image."""
import math

import cairo
import freetype
from PIL import Image

from glyphs import FACES

OVERSAMPLING = 16

BLUE = (0.09, 0.53, 0.86)      # source A; the window's lines are a darker one
YELLOW = (0.86, 0.80, 0.31)    # source B; the colour of a lit button
INK = (0.86, 0.86, 0.86)


def canvas(width, height, draw):
    """@returns what `draw (context)` leaves on a transparent ground, as straight alpha."""
    surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, width * OVERSAMPLING, height * OVERSAMPLING)
    context = cairo.Context(surface)
    context.scale(OVERSAMPLING, OVERSAMPLING)
    draw(context)
    surface.flush()
    size = (surface.get_width(), surface.get_height())
    image = Image.frombuffer("RGBa", size, bytes(surface.get_data()), "raw", "BGRa", surface.get_stride(), 1)
    return image.reduce(OVERSAMPLING).convert("RGBA")


def rounded(context, x, y, width, height, radius):
    context.new_sub_path()
    for corner, (cx, cy) in enumerate(((x + width - radius, y + radius), (x + width - radius, y + height - radius),
                                       (x + radius, y + height - radius), (x + radius, y + radius))):
        context.arc(cx, cy, radius, (corner - 1) * math.pi / 2, corner * math.pi / 2)
    context.close_path()


def button_frame(size, radius, edge):
    """White, for gradients and tints to colour: the face keeps their colour, `edge` pixels round it fall off into shade,
    and a dark line sets the button into the window. Corners and edges keep clear of the part that is stretched."""
    def draw(context):
        rounded(context, 0, 0, size, size, radius)
        context.set_source_rgba(0, 0, 0, 0.55)
        context.fill()
        steps = edge * OVERSAMPLING // 2
        for step in range(steps + 1):
            t = step / steps
            inset = 1 + t * edge
            light = 0.62 + 0.38 * math.sin(t * math.pi / 2)
            rounded(context, inset, inset, size - 2 * inset, size - 2 * inset, max(0.5, radius - inset))
            context.set_source_rgb(light, light, light)
            context.fill()
    return canvas(size, size, draw)


def slider_handle():
    """White, for the slider's two colours; round, lit from above."""
    def draw(context):
        context.arc(5.5, 5.5, 5.5, 0, 2 * math.pi)
        context.set_source_rgba(0, 0, 0, 0.6)
        context.fill()
        body = cairo.LinearGradient(0, 1, 0, 10)
        body.add_color_stop_rgb(0, 1, 1, 1)
        body.add_color_stop_rgb(1, 0.62, 0.62, 0.62)
        context.arc(5.5, 5.5, 4.5, 0, 2 * math.pi)
        context.set_source(body)
        context.fill()
        top = cairo.LinearGradient(0, 2, 0, 9)
        top.add_color_stop_rgb(0, 0.86, 0.86, 0.86)
        top.add_color_stop_rgb(1, 1, 1, 1)
        context.arc(5.5, 5.5, 3.5, 0, 2 * math.pi)
        context.set_source(top)
        context.fill()
    return canvas(11, 11, draw)


def text_path(context, text, weight, size, x, baseline, tracking=0.0):
    """Adds the outlines of a text to the path. @returns where the next letter would begin."""
    face = freetype.Face(f"{FACES}/Roboto-{weight}.ttf")
    scale = size / face.units_per_EM
    pen = [x, 0.0, 0.0]

    def at(point):
        return pen[0] + point.x * scale, baseline - point.y * scale

    def curve(control, end, _):   # a parabola, raised to the cubic that cairo draws
        (x0, y0), (x1, y1), (x2, y2) = context.get_current_point(), at(control), at(end)
        context.curve_to(x0 + (x1 - x0) * 2 / 3, y0 + (y1 - y0) * 2 / 3, x2 + (x1 - x2) * 2 / 3, y2 + (y1 - y2) * 2 / 3,
                         x2, y2)

    for letter in text:
        face.load_char(letter, freetype.FT_LOAD_NO_SCALE)
        face.glyph.outline.decompose(None, move_to=lambda p, _: context.move_to(*at(p)),
                                     line_to=lambda p, _: context.line_to(*at(p)), conic_to=curve)
        pen[0] += face.glyph.advance.x * scale + tracking
    return pen[0] - tracking


def title():
    """Headphones as a pair of scales: one source to each ear, the name in the balance."""
    def draw(context):
        width, middle = 117, 58.5
        # The band, which is the beam.
        band = cairo.LinearGradient(8, 0, width - 8, 0)
        band.add_color_stop_rgb(0.0, *BLUE)
        band.add_color_stop_rgb(0.42, *INK)
        band.add_color_stop_rgb(0.58, *INK)
        band.add_color_stop_rgb(1.0, *YELLOW)
        context.set_line_cap(cairo.LINE_CAP_ROUND)
        context.set_line_width(2.5)
        context.move_to(7.5, 27)
        context.curve_to(9, -3, width - 9, -3, width - 7.5, 27)
        context.set_source(band)
        context.stroke()
        # The cups, which are the pans.
        for x, colour in ((2, BLUE), (width - 11, YELLOW)):
            rounded(context, x, 22, 9, 22, 4)
            context.set_source_rgb(*colour)
            context.fill()
        # The name.
        for text, weight, baseline in (("DUO JUDGE", "Bold", 38),):
            end = text_path(context, text, weight, 15, 0, baseline, 0.6)
            context.new_path()
            text_path(context, text, weight, 15, middle - end / 2, baseline, 0.6)
            context.set_source_rgb(*INK)
            context.fill()
    return canvas(117, 48, draw)


IMAGES = {
    "ButtonMid": lambda: button_frame(32, 8, 3),
    "ButtonVSmall": lambda: button_frame(10, 3, 1),
    "SliderHandle": slider_handle,
    "Title": title,
}
