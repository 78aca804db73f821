# SPDX-License-Identifier: MIT
"""Tests of the shared library from outside: those that load it, and the audits of its code."""

import re
from typing import TYPE_CHECKING

from mutation.base_build import BaseBuild
from mutation.suite import Outcome, outcome_of
from mutation.workplace import Workplace

if TYPE_CHECKING:
    from mutation.judge import Changed


class Outside:
    def __init__(self, base: BaseBuild, workplace: Workplace) -> None:
        self.base, self.workplace = base, workplace
        self.programs: dict[str, list[str]] = {}

    def test(self, changes: "list[Changed]") -> Outcome | None:
        """The library with all changed objects at once."""
        objects = {unit: str(path) for changed in changes for unit, path in changed.objects.items()}
        self.workplace.link(self.base.library_words, self.workplace.library,
                            {unit: path for changed in changes
                             for unit, path in changed.objects.items()})
        for name in filter(self.base.loads_library, self.base.programs):
            outcome = outcome_of(self.workplace.run(self._program(name), 60))
            if outcome:
                return outcome
        return self._audits(objects)

    def _program(self, name: str) -> list[str]:
        """A program of tests, made once to load the library of this place."""
        if name not in self.programs:
            program = self.workplace.folder / name
            words = self.base.words_of(name)
            compiled = {word: self.workplace.compile(word) for word in words
                        if word.startswith(f"tests/CMakeFiles/{name}.dir/")}
            self.workplace.link(words, program, compiled)
            self.programs[name] = [str(program), "--gtest_fail_fast", "--gtest_color=no"]
        return self.programs[name]

    def _audits(self, objects: dict[str, str]) -> Outcome | None:
        paths = {str(self.base.build / unit): path for unit, path in objects.items()}
        for test in self.base.tests:
            name, command = str(test["name"]), test.get("command")
            if not re.match(r"audit\.(?!tests)", name) or not isinstance(command, list):
                continue
            words = [str(word) for word in command]
            words = [paths.get(word, str(self.workplace.library)
                               if "libpxmcc90lgc.so" in word else word) for word in words]
            if self.workplace.run(words, 60, {"CC": "gcc"}).status:
                return Outcome(name, "fails")
        return None
