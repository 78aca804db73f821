# SPDX-License-Identifier: MIT
"""What is proved already, and of which sources."""

from __future__ import annotations

import hashlib
import json
import re
import subprocess
from collections.abc import Sequence
from dataclasses import asdict, dataclass, field
from pathlib import Path

from evidence.parts import Part

_CASES = re.compile(r"^cases: (\d+) (.+)$", re.MULTILINE)
_SEED = re.compile(r"^seed: (\S+)$", re.MULTILINE)
_PASSED = re.compile(r"^(\d+) passed, 0 failed$", re.MULTILINE)


class Failure(Exception):
    """What is told in one line."""


@dataclass
class Result:
    """How a part ended."""

    state: str  # "held", "failed", or "unfinished"
    cases: list[tuple[int, str]] = field(default_factory=list)
    seed: str = ""
    seconds: float = 0
    compiler: str = ""
    processor: str = ""
    commit: str = ""


def read_cases(output: str) -> list[tuple[int, str]]:
    """The counts that a command printed; those of the same thing are added up."""
    counts: dict[str, int] = {}
    for number, what in _CASES.findall(output):
        counts[what] = counts.get(what, 0) + int(number)
    for number in _PASSED.findall(output):
        counts["tests"] = counts.get("tests", 0) + int(number)
    return [(number, what) for what, number in counts.items()]


def read_seed(output: str) -> str:
    """The seeds that a command printed, each once."""
    return ", ".join(dict.fromkeys(_SEED.findall(output)))


class Sources:
    """The files of a commit."""

    def __init__(self, directory: Path) -> None:
        self.directory = directory

    def git(self, *arguments: str) -> str:
        return subprocess.run(("git", *arguments), cwd=self.directory, check=True,
                              capture_output=True, text=True).stdout

    def commit(self) -> str:
        return self.git("rev-parse", "--short=10", "HEAD").strip()

    def key(self, part: Part) -> str:
        """Changes whenever a file changes that the part depends on, or its command does."""
        for name in part.depends_on():
            if not self.git("ls-files", "--", name):
                raise Failure(f"{part.name} depends on {name}, which no commit has")
        files = self.git("ls-files", "-s", "--", *part.depends_on())
        return hashlib.sha256((files + repr(part.command)).encode()).hexdigest()[:16]

    def changed_since_commit(self, parts: Sequence[Part]) -> list[str]:
        """Files of which no commit knows the present text."""
        names = sorted({name for part in parts for name in part.depends_on()})
        lines = self.git("status", "--porcelain", "--", *names).splitlines()
        return [line[3:] for line in lines]


class Store:
    """Results by part and by the state of its inputs, one file each."""

    def __init__(self, directory: Path, sources: Sources) -> None:
        self.directory = directory
        self.sources = sources

    def _file(self, part: Part) -> Path:
        return self.directory / f"{part.name}-{self.sources.key(part)}.json"

    def load(self, part: Part) -> Result | None:
        try:
            text = self._file(part).read_text()
        except FileNotFoundError:
            return None
        result = Result(**json.loads(text))
        result.cases = [(int(number), str(what)) for number, what in result.cases]
        return result

    def save(self, part: Part, result: Result) -> None:
        self.directory.mkdir(parents=True, exist_ok=True)
        new = self._file(part).with_suffix(".new")
        new.write_text(json.dumps(asdict(result), indent=1) + "\n")
        new.replace(self._file(part))

    def log(self, part: Part) -> Path:
        self.directory.mkdir(parents=True, exist_ok=True)
        return self.directory / f"{part.name}.log"
