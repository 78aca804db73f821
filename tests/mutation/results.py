# SPDX-License-Identifier: MIT
"""What a run has found out so far: a line for each mutant, written at once."""

import json
from dataclasses import asdict, dataclass, fields
from pathlib import Path

from mutation.judge import Verdict
from mutation.mutants import Mutant


@dataclass
class Result:
    identity: str
    file: str
    line: int
    operator: str
    original: str
    changed: str
    occurrence: int
    verdict: Verdict


class Results:
    def __init__(self, path: Path) -> None:
        self.path = path
        self.found: dict[str, Result] = {}
        if path.is_file():
            for line in path.read_text("ascii").splitlines():
                self._take(line)

    def _take(self, line: str) -> None:
        try:
            values = json.loads(line)
        except json.JSONDecodeError:
            return  # a run was stopped while it wrote
        names = {field.name for field in fields(Verdict)}
        verdict = Verdict(**{name: value for name, value in values.pop("verdict").items()
                             if name in names})
        result = Result(**values, verdict=verdict)
        self.found[result.identity] = result

    def add(self, mutant: Mutant, verdict: Verdict) -> None:
        result = Result(mutant.identity, mutant.file, mutant.line, mutant.operator,
                        mutant.original, mutant.changed, mutant.occurrence, verdict)
        self.found[result.identity] = result
        with open(self.path, "a", encoding="ascii") as file:
            file.write(json.dumps(asdict(result)) + "\n")
