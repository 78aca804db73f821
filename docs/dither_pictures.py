#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws a slow gradient as 16-bit pixels show it, magnified: docs/pictures/gradient-*.png.

Usage: docs/dither_pictures.py LIBRARY
"""
import ctypes
import pathlib
import struct
import sys
import zlib

WIDTH, HEIGHT, MAGNIFIED = 96, 28, 4
PICTURES = pathlib.Path(__file__).resolve().parent / "pictures"
BITS = {"444": (4, 4, 4), "555": (5, 5, 5), "565": (5, 6, 5)}


class Size(ctypes.Structure):
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int)]


def converted(library: ctypes.CDLL, name: str) -> list[int]:
    """The words of a gradient from a dark to a lighter dusk blue."""
    luma = bytes(72 + 44 * x // (WIDTH - 1) for x in range(WIDTH)) * HEIGHT
    chroma = [bytes([c]) * (WIDTH * HEIGHT) for c in (142, 122)]
    planes = [ctypes.create_string_buffer(p) for p in (luma, *chroma)]
    pointers = (ctypes.c_void_p * 3)(*(ctypes.addressof(p) for p in planes))
    pixels = (ctypes.c_uint16 * (WIDTH * HEIGHT))()
    convert = getattr(library, f"legacy90pxmiYCbCrTo{name}_8u16u_P3C3R")
    if convert(pointers, WIDTH, pixels, 2 * WIDTH, Size(WIDTH, HEIGHT)) != 0:
        sys.exit(f"dither_pictures: {name} fails")
    return list(pixels)


def stretched(word: int, bits: tuple[int, int, int]) -> bytes:
    """Red, green and blue of a BGR word, each field stretched to 255."""
    red, green, blue = bits
    fields = (word >> (green + blue), red), (word >> blue, green), (word, blue)
    return bytes(round((v & ((1 << n) - 1)) * 255 / ((1 << n) - 1)) for v, n in fields)


def png(width: int, height: int, rows: list[bytes]) -> bytes:
    def chunk(kind: bytes, data: bytes) -> bytes:
        checksum = struct.pack(">I", zlib.crc32(kind + data))
        return struct.pack(">I", len(data)) + kind + data + checksum

    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    image = zlib.compress(b"".join(b"\0" + row for row in rows), 9)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", image) +
            chunk(b"IEND", b""))


def main() -> None:
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    library = ctypes.CDLL(sys.argv[1])
    for pixel_format, bits in BITS.items():
        for kind in ("plain", "dithered"):
            name = f"BGR{pixel_format}" + ("Dither" if kind == "dithered" else "")
            words = converted(library, name)
            rows = []
            for y in range(HEIGHT):
                row = b"".join(stretched(w, bits) * MAGNIFIED
                               for w in words[y * WIDTH:(y + 1) * WIDTH])
                rows += [row] * MAGNIFIED
            path = PICTURES / f"gradient-{pixel_format}-{kind}.png"
            path.write_bytes(png(WIDTH * MAGNIFIED, HEIGHT * MAGNIFIED, rows))


main()
