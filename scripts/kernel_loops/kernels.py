# SPDX-License-Identifier: MIT
"""The kernels of a level, their main loops, and the cycles that were measured of them."""

import csv
import re
from pathlib import Path
from typing import NamedTuple

from kernel_loops.loops import Counts, Loop, Program

FAMILIES = ("decode", "encode", "twist", "depth")


class Failure(Exception):
    """Why nothing can be counted."""


class Choice(NamedTuple):
    """What is counted: the kernels of a level, or of a variant, which are of two levels."""

    name: str
    tags: list[str]  # the variants that have these kernels
    level: str
    depth_level: str

    def level_of(self, family: str) -> str:
        return self.depth_level if family == "depth" else self.level


class Kernel(NamedTuple):
    family: str
    name: str
    address: int


def rows(file: Path, macro: str) -> list[list[str]]:
    """The arguments of a list's rows."""
    found = re.findall(rf"^{macro}\((.*)", file.read_text(encoding="ascii"), re.MULTILINE)
    return [[word.strip() for word in row.split(",")] for row in found]


def choose(source: Path, variant: str | None, level: str | None) -> Choice:
    """A variant, by default the last one, or a level."""
    variants = {row[0]: (row[1], row[2])
                for row in rows(source / "frame/variants.def", "VARIANT")}
    if level:
        tags = [tag for tag, levels in variants.items() if level in levels]
        if tags:
            return Choice(level, tags, level, level)
    else:
        variant = variant or list(variants)[-1]
        if variant in variants:
            return Choice(variant, [variant], *variants[variant])
    raise Failure(f"frame/variants.def has no {level or variant}")


def kernels_of(choice: Choice, source: Path, names: dict[str, int]) -> list[Kernel]:
    """The kernels in a library; names are mangled there."""
    found = []
    for family in FAMILIES:
        for name, *_ in rows(source / family / "kernels.def", "KERNEL"):
            parts = ("pxm", choice.level_of(family), name)
            prefix = "_ZN" + "".join(f"{len(part)}{part}" for part in parts) + "E"
            found += [Kernel(family, name, address) for symbol, address in names.items()
                      if symbol.startswith(prefix)]
    return found


def main_loop(kernel: Kernel, program: Program) -> Counts | None:
    """What is counted of the loop that stores most in an iteration, in the kernel or in a function
    that it calls."""
    best = None
    for address in program.reached(kernel.address):
        for loop in filter(is_of_blocks, program.loops(address)):
            counts = loop.counts()
            if counts["operations"] and counts["bytes"] and (not best or size(counts) > size(best)):
                best = counts
    return best


def size(counts: Counts) -> tuple[int, int]:
    return counts["bytes"], counts["operations"]


def is_of_blocks(loop: Loop) -> bool:
    """Whether an iteration does a block."""
    return not loop.fixed_iterations() and has_parts_only(loop)


def has_parts_only(loop: Loop) -> bool:
    """Whether the loops in a loop are parts of a block, or do less than the rest of it, as for the
    last pixels of a row, and are not counted."""
    own = max(loop.counts_of(loop.own())["operations"], 1)
    return all((inner.fixed_iterations() or inner.counts()["operations"] < own)
               and has_parts_only(inner) for inner in loop.inner)


def stored_bytes_per_pixel(kernel: Kernel) -> float:
    """What a kernel stores for a pixel; the fourth byte of a twisted pixel is not touched."""
    if kernel.family == "decode" or kernel.name == "Pack888":
        return 2
    if kernel.family == "encode":
        return 1.5 if re.search("4(20|11)", kernel.name) else 2
    return 3


def measured_cycles(results: Path, choice: Choice, program: Program) -> dict[int, float]:
    """The fewest cycles for a pixel that the benchmark measured, at any size, in an entry that
    calls the kernel at an address."""
    best: dict[int, float] = {}
    for entry, cycles in measurements(results, choice.tags).items():
        if entry in program.names:
            for address in program.called(program.names[entry]):
                best[address] = min(best.get(address, cycles), cycles)
    return best


def measurements(results: Path, tags: list[str]) -> dict[str, float]:
    """The fewest cycles for each entry of the variants, whatever the size."""
    best: dict[str, float] = {}
    with results.open(newline="", encoding="utf-8") as file:
        reader = csv.DictReader(file)
        if not {"conversion", "maker", "cycles_per_pixel"} <= set(reader.fieldnames or ()):
            raise Failure(f"{results} is no table of the benchmark's results")
        for row in reader:
            if row["maker"] in tags:
                entry = f"{row['conversion']}_{row['maker']}"
                cycles = float(row["cycles_per_pixel"])
                best[entry] = min(best.get(entry, cycles), cycles)
    return best
