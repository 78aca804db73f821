#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Says which lines and branches of the library ran, file by file, and holds what did not run to the
list of exceptions.

Usage: report.py PROFILE BUILD SOURCE EXCEPTIONS PAGE
"""

from __future__ import annotations

import pathlib
import sys
from collections import defaultdict
from dataclasses import dataclass

from measured import Counts, Tools, measure

TOOLS = Tools('llvm-cov-14', 'llvm-profdata-14')


@dataclass(frozen=True, order=True)
class Uncovered:
    """A line of a source that did not run in some levels, or a way that a condition did not go."""

    file: str
    levels: str
    way: str
    text: str

    def __str__(self) -> str:
        return ' | '.join((self.file, self.levels, self.way, self.text))


def uncovered(counts: Counts, source: pathlib.Path) -> list[Uncovered]:
    levels: dict[tuple[str, int, int, str], list[str]] = defaultdict(list)
    for p, count in counts.items():
        if count == 0:
            levels[p.file, p.line, p.column, p.way].append(p.level)
    found = []
    for (file, line, _, way), names in sorted(levels.items()):
        text = (source / file).read_text().splitlines()[line - 1].strip()
        found.append(Uncovered(file, ' '.join(sorted(names)), way, text))
    return found


def exceptions(file: pathlib.Path) -> list[tuple[Uncovered, str]]:
    """The rows of the list: FILE | LEVELS | WAY | TEXT OF THE LINE | REASON."""
    rows = []
    for line in file.read_text().splitlines():
        if line and not line.startswith('#'):
            name, levels, way, rest = line.split(' | ', 3)
            text, reason = rest.rsplit(' | ', 1)
            rows.append((Uncovered(name, levels, way, text), reason))
    return rows


def differences(found: list[Uncovered], excepted: list[tuple[Uncovered, str]]) -> list[str]:
    """What is uncovered without a reason, and what has a reason without being uncovered. A text may
    stand in several lines: as often as it is uncovered it is excepted."""
    left = [row for row, _ in excepted]
    faults = []
    for row in found:
        if row in left:
            left.remove(row)
        else:
            faults.append(f'not covered: {row}')
    return faults + [f'an exception that is not needed: {row}' for row in left]


def table(counts: Counts) -> list[str]:
    """A row for each file: lines and branches, and how many of them did not run."""
    rows: dict[str, list[int]] = defaultdict(lambda: [0, 0, 0, 0])
    for p, count in counts.items():
        at = 0 if p.way == 'line' else 2
        for name in (p.file, 'all'):
            rows[name][at] += 1
            rows[name][at + 1] += count == 0
    text = ['| File | Lines | not run | Branches | not run |', '|---|---:|---:|---:|---:|']
    total = rows.pop('all')
    text += [f'| `{name}` | ' + ' | '.join(map(str, row)) + ' |'
             for name, row in sorted(rows.items())]
    return text + ['| all | ' + ' | '.join(map(str, total)) + ' |']


PAGE = '''# Coverage

What runs of the library's own C++ in the fast tests of frame, twist and geometry, made by
`scripts/coverage`. A line counts once for each level or variant that it is compiled for, because
each has code of its own; of a condition each way counts, but for conditions that the compiler
knows. The instantiations of a template in one level count together. Inline functions that a level
does not use, and those that only the compiler runs, are not in the library and do not count.

`frame/stubs.S` is assembly, where nothing can be counted. Its stubs and trampolines have no branch:
`Trampoline` calls each name through its trampoline and stub, `Geometry` each stub in every variant,
and `SharedObject` compares every slot of every table with the entry that belongs there.

'''


def main() -> int:
    profile, build, source, listed, page = (pathlib.Path(a).resolve() for a in sys.argv[1:])
    counts = measure(TOOLS, profile, build, source)
    excepted = exceptions(listed)
    rows = table(counts)
    print('\n'.join(rows))
    faults = differences(uncovered(counts, source), excepted)
    for fault in faults:
        print(fault)
    if faults:
        return 1
    page.write_text(PAGE + '\n'.join(rows)
                    + '\n\n## Not run, with the reason\n\n'
                    + ''.join(f'- `{row.file}`, {row.levels}, {row.way} of `{row.text}`: '
                              f'{reason}.\n' for row, reason in excepted))
    lines = sum(p.way == 'line' for p in counts)
    print(f'cases: {lines} lines, {len(excepted)} rows of exceptions')
    print(f'cases: {len(counts) - lines} branches')
    return 0


if __name__ == '__main__':
    sys.exit(main())
