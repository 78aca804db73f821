# SPDX-License-Identifier: MIT
"""What ran of the library's objects, as llvm-cov says it: lines and branches of each source."""

from __future__ import annotations

import json
import pathlib
import subprocess
from collections import defaultdict
from dataclasses import dataclass
from typing import cast


@dataclass(frozen=True, order=True)
class Place:
    """A line, or one way that a condition can go, in a source as one level or variant has it."""

    file: str
    line: int
    column: int  # 0 for the line itself
    way: str  # "line", "true" or "false"
    level: str


Counts = dict[Place, int]


@dataclass(frozen=True)
class Tools:
    """The names of LLVM's programs."""

    cov: str
    profdata: str


def level_of(target: str) -> str:
    """'sse2' for kernels_sse2 and depth_kernels_sse2, 'entries of mx' for entries_mx."""
    if target.startswith('entries_'):
        return 'entries of ' + target.removeprefix('entries_')
    return target.removeprefix('depth_').removeprefix('kernels_').removeprefix('pxm_')


def objects_of(build: pathlib.Path) -> dict[pathlib.Path, str]:
    """The library's object files, with the level of each."""
    found = {}
    for target in sorted((build / 'CMakeFiles').glob('*.dir')):
        name = target.name.removesuffix('.dir')
        if name in ('pxm_frame', 'pxm_tables') or 'kernels_' in name or name.startswith('entries_'):
            for file in sorted(target.rglob('*.cpp.o')):
                found[file] = level_of(name)
    return found


def _emitted(llvm_profdata: str, profile: pathlib.Path) -> set[str]:
    """The functions that have counters. Inline functions that nobody uses have none, nor have
    those that only the compiler runs: they are not in the library."""
    text = subprocess.run([llvm_profdata, 'show', '--all-functions', profile],
                          check=True, capture_output=True, text=True).stdout
    return {row.strip().removesuffix(':') for row in text.splitlines()
            if row.startswith('  ') and not row.startswith('   ') and row.endswith(':')}


Region = list[int]  # first line and column, last line and column, count, file, expanded file, kind
CODE = 0


def line_counts(regions: list[Region]) -> dict[int, int]:
    """How often each line ran: as often as the region around its begin, or a region that begins
    on it, whichever is more."""
    regions = sorted((r for r in regions if r[7] == CODE), key=lambda r: (r[0], r[1], -r[2], -r[3]))
    counts: dict[int, int] = {}
    if not regions:
        return counts
    for line in range(regions[0][0], max(r[2] for r in regions) + 1):
        around = [r for r in regions if (r[0], r[1]) < (line, 1) <= (r[2], r[3])]
        begun = [r for r in regions if r[0] == line]
        if around or begun:
            counts[line] = max(r[4] for r in around[-1:] + begun)
    return counts


def _add_function(function: dict[str, object], level: str, source: pathlib.Path,
                  counts: Counts) -> None:
    files = [str(pathlib.Path(f).resolve().relative_to(source))
             for f in cast(list[str], function['filenames'])]
    regions = cast(list[Region], function['regions'])
    for number, file in enumerate(files):
        for line, count in line_counts([r for r in regions if r[5] == number]).items():
            counts[Place(file, line, 0, 'line', level)] += count
    for branch in cast(list[Region], function['branches']):
        line, column, _, _, taken, skipped, number = branch[:7]
        for way, count in (('true', taken), ('false', skipped)):
            counts[Place(files[number], line, column, way, level)] += count


def _without_constants(counts: Counts) -> Counts:
    """Without conditions that never went any way although their lines ran: the compiler knows them,
    or they stand behind one that has the uncovered way."""
    def is_constant(p: Place) -> bool:
        return (p.way != 'line'
                and counts[Place(p.file, p.line, p.column, 'true', p.level)] == 0
                and counts[Place(p.file, p.line, p.column, 'false', p.level)] == 0
                and counts.get(Place(p.file, p.line, 0, 'line', p.level), 0) > 0)
    return {place: count for place, count in counts.items() if not is_constant(place)}


def measure(tools: Tools, profile: pathlib.Path, build: pathlib.Path,
            source: pathlib.Path) -> Counts:
    """How often each place ran. A place of several instantiations of a template ran as often as
    all of them; those of different levels are different places."""
    emitted = _emitted(tools.profdata, profile)
    counts: Counts = defaultdict(int)
    for file, level in objects_of(build).items():
        text = subprocess.run([tools.cov, 'export', '-instr-profile', profile, file],
                              check=True, capture_output=True, text=True).stdout
        for function in json.loads(text)['data'][0]['functions']:
            if function['name'] in emitted:
                _add_function(function, level, source, counts)
    return _without_constants(counts)
