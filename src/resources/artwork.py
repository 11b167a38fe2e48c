# SPDX-License-Identifier: GPL-3.0-or-later
"""The window's pictures: the title, the frames that buttons stretch, the slider's knob.

All are drawn many times too large and averaged, so that edges get their exact coverage. Coordinates are pixels of
the finished image."""
import math

import cairo
import freetype
from PIL import Image, ImageOps

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
    """White, for gradients and tints to colour: the face keeps their colour, `edge` pixels round it fall off into
    shade, and a dark line sets the button into the window. What is stretched is the same all over."""
    def draw(context):
        context.set_antialias(cairo.ANTIALIAS_NONE)   # layers whose edges coincide would shine through each other
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
    frame = canvas(size, size, draw)
    left = frame.crop((0, 0, size // 2, size))
    frame.paste(ImageOps.mirror(left), (size // 2, 0))   # corners alike to the last bit
    upper = frame.crop((0, 0, size, size // 2))
    frame.paste(ImageOps.flip(upper), (0, size // 2))
    return frame


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


def hinted_text(context, text, weight, size, x, baseline):
    """Adds the outlines of a text to the path, stems on whole pixels. @returns where the next letter would begin."""
    face = freetype.Face(f"{FACES}/Roboto-{weight}.ttf")
    face.set_char_size(int(size * 64))

    def at(point):
        return x + point.x / 64, baseline - point.y / 64

    def curve(control, end, _):   # a parabola, raised to the cubic that cairo draws
        (x0, y0), (x1, y1), (x2, y2) = context.get_current_point(), at(control), at(end)
        context.curve_to((x0 + 2 * x1) / 3, (y0 + 2 * y1) / 3, (x2 + 2 * x1) / 3, (y2 + 2 * y1) / 3, x2, y2)

    for letter in text:
        face.load_char(letter, freetype.FT_LOAD_NO_BITMAP | freetype.FT_LOAD_FORCE_AUTOHINT)
        face.glyph.outline.decompose(None, move_to=lambda p, _: context.move_to(*at(p)),
                                     line_to=lambda p, _: context.line_to(*at(p)), conic_to=curve)
        x += face.glyph.advance.x // 64
    return x


def title():
    """Headphones that are a pair of scales: a source to each ear, one needle, and the name in the balance."""
    width, middle, floor = 117, 58.5, 24
    bars = (11, 8, 12, 6, 9, 4, 6, 3, 2)   # pixels high, from the needle outwards

    def draw(context):
        beam = cairo.LinearGradient(8, 0, width - 8, 0)
        for position, colour in ((0, BLUE), (0.36, INK), (0.64, INK), (1, YELLOW)):
            beam.add_color_stop_rgb(position, *colour)
        context.move_to(6.5, 25)
        context.curve_to(7, -4, width - 7, -4, width - 6.5, 25)
        context.set_line_width(2.5)
        context.set_source(beam)
        context.stroke()

        for colour, mirror in ((BLUE, False), (YELLOW, True)):
            context.save()
            if mirror:
                context.transform(cairo.Matrix(-1, 0, 0, 1, width, 0))
            rounded(context, 6, 24, 4, 19, 2)
            context.set_source_rgb(*(0.55 * part for part in colour))
            context.fill()
            rounded(context, 1, 22, 7, 23, 3)
            for number, height in enumerate(bars):
                context.rectangle(middle - 4.5 - 4 * number, floor - height, 2, height)
            context.set_source_rgb(*colour)
            context.fill()
            context.restore()

        end = hinted_text(context, "DUO JUDGE", "Bold", 15.5, 0, 0)
        context.new_path()
        context.rectangle(middle - 0.5, 8, 1, floor - 8)
        hinted_text(context, "DUO JUDGE", "Bold", 15.5, (width - end) // 2, 39)
        context.set_source_rgb(*INK)
        context.fill()
    return canvas(width, 48, draw)


IMAGES = {
    "ButtonMid": lambda: button_frame(32, 8, 3),
    "ButtonVSmall": lambda: button_frame(10, 3, 1),
    "SliderHandle": slider_handle,
    "Title": title,
}
