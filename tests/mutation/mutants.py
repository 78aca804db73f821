# SPDX-License-Identifier: MIT
"""All mutants of the library's sources, and the order in which a run takes them."""

import hashlib
import random
import re
from collections.abc import Callable, Iterable, Iterator
from dataclasses import dataclass
from pathlib import Path

from mutation import operators, structures
from mutation.edits import Edit
from mutation.source_text import SourceText

FOLDERS = ("decode", "encode", "depth", "twist", "vector", "frame")
SUFFIXES = (".inl", ".h", ".cpp", ".def", ".S", ".inc")
# Of Windows alone.
LEFT_OUT = ("frame/stubs_pe.inc",)

OPERATORS: dict[str, Callable[[SourceText], Iterator[Edit]]] = {
    "constant": operators.constants,
    "shift": operators.shifts,
    "comparison": operators.comparisons,
    "arithmetic": operators.arithmetic,
    "member": operators.members,
    "condition": structures.conditions,
    "statement": structures.statements,
    "operands": structures.operands,
    "checks": structures.checks,
    "plan": structures.plans,
    "row": structures.rows,
    "instruction": structures.instructions,
}


def one_line(text: str) -> str:
    return re.sub(r"\s+", " ", text).strip()


@dataclass(frozen=True)
class Mutant:
    """A file with one change. Its identity is the file, the lines as they were and as they are, and
    which of several like lines it is, so that it outlives changes elsewhere in the file."""

    file: str
    operator: str
    line: int
    original: str
    changed: str
    occurrence: int
    edit: Edit

    @property
    def identity(self) -> str:
        parts = (self.file, self.original, self.changed, str(self.occurrence))
        return hashlib.sha256("\0".join(parts).encode()).hexdigest()[:16]


def mutant(source: SourceText, operator: str, edit: Edit) -> Mutant:
    start = source.text.rfind("\n", 0, edit.start) + 1
    end = source.text.find("\n", edit.end)
    end = len(source.text) if end < 0 else end
    original = source.text[start:end]
    changed = original[:edit.start - start] + edit.text + original[edit.end - start:]
    occurrence = len(re.findall(rf"^{re.escape(original)}$", source.text[:start], re.MULTILINE)) + 1
    return Mutant(source.name, operator, source.text.count("\n", 0, edit.start) + 1,
                  one_line(original), one_line(changed), occurrence, edit)


def mutants_of(source: SourceText) -> list[Mutant]:
    """Each once, whatever operators make it."""
    found: dict[str, Mutant] = {}
    for name, operator in OPERATORS.items():
        for edit in operator(source):
            if edit.applied(source.text) == source.text:
                continue
            made = mutant(source, name, edit)
            if made.original != made.changed:
                found.setdefault(made.identity, made)
    return list(found.values())


def source_files(root: Path) -> list[str]:
    return sorted(str(path.relative_to(root)) for folder in FOLDERS
                  for path in (root / folder).rglob("*") if path.suffix in SUFFIXES
                  and str(path.relative_to(root)) not in LEFT_OUT)


def key_of(root: Path) -> str:
    """One name for all sources that mutants are made of."""
    digest = hashlib.sha256()
    for name in source_files(root):
        digest.update(name.encode() + b"\0" + (root / name).read_bytes() + b"\0")
    return digest.hexdigest()[:12]


def all_mutants(root: Path) -> list[Mutant]:
    return [made for name in source_files(root)
            for made in mutants_of(SourceText(name, (root / name).read_text("ascii")))]


def in_order(mutants: Iterable[Mutant], seed: int) -> list[Mutant]:
    """An even draw: by turns one of each file and operator, until none is left."""
    groups: dict[tuple[str, str], list[Mutant]] = {}
    for made in mutants:
        groups.setdefault((made.file, made.operator), []).append(made)
    generator = random.Random(seed)
    for group in groups.values():
        generator.shuffle(group)
    ordered = []
    left = list(groups.values())
    while left:
        generator.shuffle(left)
        for group in left:
            ordered.append(group.pop())
        left = [group for group in left if group]
    return ordered
