# SPDX-License-Identifier: MIT
"""Which objects a mutant is compiled into: kernels of one kind and level, and what else of the
library was made from the same file."""

import re
from dataclasses import dataclass
from pathlib import Path

from mutation.base_build import BaseBuild

# Kinds of kernels, cheapest first.
KINDS = ("twist", "depth", "encode", "decode")
# The cheapest first; each a way of its own before those that are like another.
LEVELS = ("scalar", "sse2", "avx2", "sse2_in_order", "ssse3", "avx", "ssse3_in_order")


@dataclass(frozen=True)
class Place:
    """Objects that are compiled and tested together."""

    kind: str          # of kernels, or "frame"
    variant: str       # whose tests can see it; empty for all
    kernels: str       # the object of kernels, or empty
    others: tuple[str, ...]

    @property
    def name(self) -> str:
        return f"{self.kind} {self.variant}".strip()


def variants_of(source: Path) -> dict[str, tuple[str, str]]:
    """The levels of each variant: those of its kernels and of its depth conversions."""
    text = (source / "frame/variants.def").read_text("ascii")
    return {tag: (level, depth) for tag, level, depth in
            re.findall(r"^VARIANT\((\w+), *(\w+), *(\w+),", text, re.MULTILINE)}


class Places:
    def __init__(self, base: BaseBuild) -> None:
        self.objects = {name: base.made_from[name] for name in base.library_objects}
        self.variants = variants_of(base.source)

    def _variant_of(self, kind: str, level: str) -> str:
        column = 1 if kind == "depth" else 0
        return next((tag for tag, levels in self.variants.items() if levels[column] == level), "")

    def of(self, file: str) -> dict[str, list[Place]]:
        """By kinds, each level at which the file is compiled, cheapest first."""
        named = [name for name, files in self.objects.items() if file in files]
        shared = [name for name in named if "/pxm_" in name]
        places: dict[str, list[Place]] = {}
        for kind in KINDS:
            folder = "depth_kernels" if kind == "depth" else "kernels"
            for level in LEVELS:
                kernels = f"CMakeFiles/{folder}_{level}.dir/{kind}/kernels.cpp.o"
                variant = self._variant_of(kind, level)
                if kernels in named:
                    entries = [name for name in named if f"/entries_{variant}.dir" in name]
                    places.setdefault(kind, []).append(
                        Place(kind, variant, kernels, (*shared, *entries)))
        if not places:
            for variant in [*self.variants][:1] + [*self.variants][-1:]:
                entries = [name for name in named if f"/entries_{variant}.dir" in name]
                if entries or shared:
                    places.setdefault("frame", []).append(
                        Place("frame", "" if shared else variant, "", (*shared, *entries)))
                if shared and not entries:
                    break
        return places


ROW = re.compile(r"^KERNEL\((\w+),\s*(\w+),(.*)\)$", re.MULTILINE)


def fewer_rows(text: str) -> str:
    """A list of kernels with as few rows as name everything that the whole names once."""
    rows = [(match[0], set(re.split(r",\s*(?![^<]*>)", match[3].strip())))
            for match in ROW.finditer(text)]
    left = set().union(*(parts for _, parts in rows))
    kept = set()
    while left:
        row, parts = max(rows, key=lambda r: len(r[1] & left))
        kept.add(row)
        left -= parts
    return ROW.sub(lambda match: match[0] if match[0] in kept else "", text)
