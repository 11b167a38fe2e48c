# SPDX-License-Identifier: GPL-3.0-or-later
"""Glyph sheets: every text size as one image of white ink, and where in it each character stands.

A cell is all the renderer knows of a glyph: it is as wide as the pen moves and as high as the line, so bearings, the
baseline and accents are settled here. Cells of a row touch; no ink leaves its own."""
import unicodedata
from collections import namedtuple

import freetype
from PIL import Image

FACES = "/usr/share/fonts/truetype/roboto/unhinted/RobotoTTF"

# `em` and `baseline` are pixels, the latter from the top of the cell; rows of cells begin at FIRST_ROW, `pitch` apart.
# Where controls push a label away from the middle of its box (one pixel down, the big letters five up), the baseline
# makes up for it: capitals and figures come out centred.
Sheet = namedtuple("Sheet", "name face em cell baseline pitch width height extended")
SHEETS = (
    Sheet("FONT_FontText10", "Regular", 10, 11, 9, 17, 512, 180, False),
    Sheet("FONT_FontText11", "Regular", 11, 12, 9, 18, 480, 728, True),
    Sheet("FONT_FontText12", "Regular", 12, 14, 11, 20, 480, 844, True),
    Sheet("FONT_FontText14", "Regular", 13, 15, 11, 21, 480, 1092, True),
    Sheet("FONT_FontText18", "Medium", 17, 20, 15, 26, 480, 892, True),
    Sheet("FONT_FontText20", "Medium", 19, 22, 17, 23, 1024, 264, True),
    Sheet("FONT_FontText22", "Medium", 21, 25, 19, 26, 1024, 312, True),
    Sheet("FONT_FontText24", "Medium", 23, 27, 21, 28, 1024, 368, True),
    Sheet("FONT_FontText28", "Medium", 27, 31, 24, 32, 1024, 484, True),
    Sheet("FONT_FontText44", "Medium", 44, 57, 48, 58, 1024, 1024, True),
    Sheet("FONT_DuoJudgeBigLetters", "Medium", 56, 74, 62, 75, 1024, 1024, True),
)
FIRST_ROW = 1

SPACE, LINE_FEED, NO_BREAK_SPACE = 32, 10, 160

# In the order in which they claim room: a sheet ends with the first that finds none. Living alphabets come before
# historic and phonetic letters, so that the big sizes, which cannot hold everything, lose what is missed least.
RANGES = ((32, 95), (97, 126), (161, 254), (256, 383), (1024, 1119), (384, 591), (1120, 1279))
EXTENDED_RANGES = ((255, 255), (NO_BREAK_SPACE, NO_BREAK_SPACE), (880, 1023))
ROW_STARTS = {97}   # lower case begins a row

Glyph = namedtuple("Glyph", "width left top image")   # image None: a blank cell
Run = namedtuple("Run", "first_code top left widths")   # characters in succession in one row


class Typeface:
    """Draws single glyphs of one sheet, fitted to its cell."""

    def __init__(self, sheet):
        self.sheet = sheet
        self.face = freetype.Face(f"{FACES}/Roboto-{sheet.face}.ttf")

    def glyph(self, code):
        """The glyph of that character, or None where the typeface has none."""
        if code in (SPACE, NO_BREAK_SPACE):
            return Glyph((self.sheet.em + 4) // 4, 0, 0, None)
        if not self.face.get_char_index(code):
            return None
        # An accent cut off would be another letter. So a letter too tall for the line is drawn less high as a whole,
        # and one that hangs too low has its lower part pushed up. A sign need not stand on the baseline: it may move.
        may_move = not unicodedata.category(chr(code)).startswith("L")
        for percent in range(100, 40, -1):
            glyph = self._render(code, percent, push_up=not may_move)
            if glyph.image is None:
                return glyph
            lowest = self.sheet.cell - glyph.image.height
            top = max(0, min(glyph.top, lowest)) if may_move else glyph.top
            if 0 <= top <= lowest:
                return glyph._replace(top=top)
        raise ValueError(f"{self.sheet.name}: no way to fit character {code}")

    def _render(self, code, percent, push_up):
        em = self.sheet.em * 64
        self.face.set_char_size(em, em * percent // 100)
        self.face.load_char(code, freetype.FT_LOAD_NO_BITMAP | freetype.FT_LOAD_FORCE_AUTOHINT)
        slot = self.face.glyph
        if push_up:
            self._push_up(slot.outline)
        slot.render(freetype.FT_RENDER_MODE_NORMAL)
        bitmap = slot.bitmap
        advance = (slot.advance.x + 32) >> 6
        if not bitmap.width or not bitmap.rows:
            return Glyph(max(1, advance), 0, 0, None)
        image = Image.frombytes("L", (bitmap.width, bitmap.rows), bytes(bitmap.buffer), "raw", "L", bitmap.pitch)
        left = max(0, slot.bitmap_left)
        return Glyph(max(advance, left + bitmap.width), left, self.sheet.baseline - slot.bitmap_top, image)

    def _push_up(self, outline):
        room, depth = (self.sheet.cell - self.sheet.baseline) * 64, -outline.get_cbox().yMin
        points = outline._FT_Outline.points   # the one way to reach them for writing
        for number in range(outline.n_points if depth > room else 0):
            if points[number].y < 0:
                points[number].y = points[number].y * room // depth


def codes(sheet):
    for first, last in RANGES + (EXTENDED_RANGES if sheet.extended else ()):
        yield from range(first, last + 1)


def draw_sheet(sheet):
    """@returns the sheet's image and its runs, in the order in which the cells stand."""
    typeface = Typeface(sheet)
    coverage = Image.new("L", (sheet.width, sheet.height))
    runs, left, top, previous = [], 0, FIRST_ROW, None

    for code in codes(sheet):
        glyph = typeface.glyph(code)
        if glyph is None:
            continue
        if left + glyph.width > sheet.width or code in ROW_STARTS:
            left, top, previous = 0, top + sheet.pitch, None
        if top + sheet.cell > sheet.height:
            break
        if glyph.image:
            coverage.paste(glyph.image, (left + glyph.left, top + glyph.top))
        if previous is None or code != previous + 1:
            runs.append(Run(code, top, left, []))
        runs[-1].widths.append(glyph.width)
        left, previous = left + glyph.width, code

    # A line feed takes the room of a space; its cell is the one that tells the height of the line.
    space = runs[0]
    runs.insert(0, Run(LINE_FEED, space.top, space.left, space.widths[:1]))

    white = Image.new("L", coverage.size, 255)
    return Image.merge("RGBA", (white, white, white, coverage)), runs
