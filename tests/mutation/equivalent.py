# SPDX-License-Identifier: MIT
"""The list of mutants that no test can tell from the library, each with the reason."""

from collections import Counter
from collections.abc import Iterable
from dataclasses import dataclass
from pathlib import Path

from mutation.mutants import Mutant


class Malformed(Exception):
    pass


@dataclass(frozen=True)
class Equivalent:
    """A mutant by what makes its identity, so that an entry can name no other."""

    file: str
    original: str
    changed: str
    occurrence: int
    reason: str

    @property
    def names(self) -> tuple[str, str, str, int]:
        return self.file, self.original, self.changed, self.occurrence


def names_of(mutant: Mutant) -> tuple[str, str, str, int]:
    return mutant.file, mutant.original, mutant.changed, mutant.occurrence


def parse(text: str) -> list[Equivalent]:
    """Paragraphs of four lines: FILE, or FILE #N for the N-th of like lines, then `- ` the line,
    `+ ` what becomes of it and `= ` why nobody can tell."""
    found = []
    for paragraph in text.strip().split("\n\n"):
        lines = [f"{line} " if line == "+" else line for line in paragraph.splitlines()
                 if not line.startswith("#")]
        if not lines:
            continue
        if len(lines) != 4 or [line[:2] for line in lines[1:]] != ["- ", "+ ", "= "] \
                or not lines[3][2:].strip():
            raise Malformed(f"no four lines of file, line, change and reason: {paragraph}")
        file, _, number = lines[0].partition(" #")
        found.append(Equivalent(file, lines[1][2:], lines[2][2:], int(number or 1), lines[3][2:]))
    twice = [names for names, count in Counter(entry.names for entry in found).items() if count > 1]
    if twice:
        raise Malformed(f"named twice: {twice[0]}")
    return found


def reasons(path: Path, mutants: Iterable[Mutant]) -> dict[str, str]:
    """The reasons by the identities of the mutants; an entry that names none is an error."""
    identities = {names_of(mutant): mutant.identity for mutant in mutants}
    given = {}
    for entry in parse(path.read_text("ascii")):
        if entry.names not in identities:
            raise Malformed(f"no such mutant: {entry.names}")
        given[identities[entry.names]] = entry.reason
    return given
