#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws the bits of the 16-bit pixel formats: docs/pictures/bits-*.svg.

Usage: docs/bit_pictures.py [--check LIBRARY]

With --check nothing is drawn: the pictures must be as they would be drawn, and the fields those of
the words that the library writes for pure red, green and blue, and for black.
"""
import ctypes
import pathlib
import sys
from typing import Iterator

# Bit 15 stands at the left; '0' is a spare bit.
FORMATS = {
    "BGR444": "0000RRRRGGGGBBBB",
    "BGR555": "0RRRRRGGGGGBBBBB",
    "BGR565": "RRRRRGGGGGGBBBBB",
    "RGB444": "0000BBBBGGGGRRRR",
    "RGB555": "0BBBBBGGGGGRRRRR",
    "RGB565": "BBBBBGGGGGGRRRRR",
}
FILLS = {"R": "#f4b0a8", "G": "#b4deb0", "B": "#b0c8f4", "0": "#e8e8e8"}
CELL, LEFT, ROW, GAP = 34, 150, 26, 12
PICTURES = pathlib.Path(__file__).resolve().parent / "pictures"

# Y, Cb, Cr of pure colours in nominal studio range.
PURE = {"R": (81, 90, 240), "G": (145, 54, 34), "B": (41, 240, 110), "0": (16, 128, 128)}


def mask(bits: str, letter: str) -> int:
    return sum(1 << (15 - i) for i, c in enumerate(bits) if c == letter)


def names(bits: str) -> list[str]:
    """Each bit's name, such as R4, the highest bit of a component having the highest number."""
    return [c if c == "0" else f"{c}{bits[i + 1:].count(c)}" for i, c in enumerate(bits)]


def text(x: int, y: int, words: object, anchor: str = "middle", size: int = 13) -> str:
    return f'<text x="{x}" y="{y}" font-size="{size}" text-anchor="{anchor}">{words}</text>'


def cells(top: int, shown: list[str]) -> Iterator[str]:
    """A row of sixteen cells; the two bytes stand a little apart."""
    for i, name in enumerate(shown):
        x = LEFT + i * CELL + (GAP if i > 7 else 0)
        yield (f'<rect x="{x}" y="{top}" width="{CELL}" height="{ROW}" fill="{FILLS[name[0]]}" '
               'stroke="#606060"/>')
        yield text(x + CELL // 2, top + 18, name)


def picture(name: str, bits: str) -> str:
    shown = names(bits)
    width, height = LEFT + 16 * CELL + GAP + 10, 186
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
             f'viewBox="0 0 {width} {height}" font-family="sans-serif" fill="#202020">',
             f"<title>{name}: the bits of a pixel</title>",
             f'<rect width="{width}" height="{height}" fill="#ffffff"/>',
             text(LEFT - 10, 42, f'<tspan font-weight="bold">{name}</tspan>, a word', "end")]
    for i in range(16):
        x = LEFT + i * CELL + (GAP if i > 7 else 0) + CELL // 2
        lines.append(text(x, 18, 15 - i, size=11))
    lines += cells(24, shown)
    for top, label, first, second in ((88, "in memory", 0, 1), (148, "for SPI panels", 1, 0)):
        lines.append(text(LEFT - 10, top + 18, label, "end"))
        for x, byte in ((LEFT, first), (LEFT + 8 * CELL + GAP, second)):
            place = "first" if x == LEFT else "second"
            lines.append(text(x + 4 * CELL, top - 6, f"{place} byte: bits "
                              f"{'7 to 0' if byte == 0 else '15 to 8'}", size=11))
        lines += cells(top, shown[8:] + shown[:8] if first == 0 else shown)
    return "\n".join(lines + ["</svg>", ""])


class Size(ctypes.Structure):
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int)]


def word_of(library: ctypes.CDLL, name: str, samples: tuple[int, int, int]) -> int:
    """What the library writes for one pixel."""
    planes = [ctypes.create_string_buffer(bytes([s])) for s in samples]
    pointers = (ctypes.c_void_p * 3)(*(ctypes.addressof(p) for p in planes))
    pixel = ctypes.c_uint16(0xFFFF)
    convert = getattr(library, f"legacy90pxmiYCbCrTo{name}_8u16u_P3C3R")
    status = convert(pointers, 1, ctypes.byref(pixel), 2, Size(1, 1))
    if status != 0:
        raise SystemExit(f"bit_pictures: {name} returns {status}")
    return pixel.value


def check(library: ctypes.CDLL) -> str | None:
    faults = []
    for name, bits in FORMATS.items():
        for letter, samples in PURE.items():
            wanted = 0 if letter == "0" else mask(bits, letter)
            written = word_of(library, name, samples)
            if written != wanted:
                faults.append(f"{name}: the library writes {written:04X} for {letter}, "
                              f"not {wanted:04X}")
        if path_of(name).read_text(encoding="ascii") != picture(name, bits):
            faults.append(f"{path_of(name)} is not as drawn; docs/bit_pictures.py draws it")
    return "\n".join(faults) or None


def path_of(name: str) -> pathlib.Path:
    return PICTURES / f"bits-{name.lower()}.svg"


def main() -> None:
    if len(sys.argv) == 3 and sys.argv[1] == "--check":
        sys.exit(check(ctypes.CDLL(sys.argv[2])))
    if len(sys.argv) != 1:
        sys.exit(__doc__)
    for name, bits in FORMATS.items():
        path_of(name).write_text(picture(name, bits), encoding="ascii")


main()
