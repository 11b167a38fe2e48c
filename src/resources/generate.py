#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws all images and writes the glyph tables that go with them.

generate.py             draws into this folder
generate.py FOLDER      draws into FOLDER
generate.py --check     draws into a scratch folder and names what differs from this one; fails if anything does"""
import sys, tempfile
from pathlib import Path

from PIL import Image

sys.dont_write_bytecode = True
import artwork, glyphs, tables

HERE = Path(__file__).resolve().parent
TABLES = "GlyphTables.gen.cpp"


def generate(folder):
    images = folder / "images"
    images.mkdir(parents=True, exist_ok=True)
    drawn = []

    for sheet in glyphs.SHEETS:
        image, runs = glyphs.draw_sheet(sheet)
        image.save(images / f"{sheet.name}.png")
        drawn.append((sheet, runs))

    for name, draw in artwork.IMAGES.items():
        draw().save(images / f"{name}.png")

    (folder / TABLES).write_text(tables.glyph_tables(drawn), encoding="utf-8")


def contents(path):
    """Pixels, not files: how a picture is packed is its compressor's affair."""
    if path.suffix != ".png":
        return path.read_text(encoding="utf-8")
    with Image.open(path) as image:
        return image.mode, image.size, image.tobytes()


def differences(here, there):
    """@returns the names of generated files that differ between both folders, or stand in one only."""
    def names(folder):
        return {TABLES} | {f"images/{p.name}" for p in (folder / "images").iterdir()}
    both = names(here) & names(there)
    return sorted((names(here) ^ names(there)) | {n for n in both if contents(here / n) != contents(there / n)})


def check():
    with tempfile.TemporaryDirectory() as scratch:
        generate(Path(scratch))
        wrong = differences(HERE, Path(scratch))
    for name in wrong:
        print(f"{name}: is not what generate.py draws")
    return 1 if wrong else 0


if __name__ == "__main__":
    arguments = sys.argv[1:]
    if arguments == ["--check"]:
        sys.exit(check())
    generate(Path(arguments[0]) if arguments else HERE)
