# SPDX-License-Identifier: MIT
"""Tests that compile sources of the library themselves: forms, chains, packers, plans. A mutant
that the other tests do not notice is compiled into them."""

import re

from mutation.base_build import BaseBuild
from mutation.suite import Outcome, Suite, outcome_of
from mutation.workplace import DoesNotCompile, StaticAssertion, Workplace


class TestsOfSources:
    def __init__(self, base: BaseBuild, workplace: Workplace, suite: Suite) -> None:
        self.base, self.workplace, self.suite = base, workplace, suite

    def units(self, file: str) -> list[str]:
        """Objects of tests into which a file is compiled as source of a level."""
        if not file.endswith((".inl", ".h")) or file.startswith("frame/features"):
            return []
        return [word for word in self.suite.words
                if word.startswith("tests/") and word.endswith("_test.cpp.o")
                and file in self.base.made_from.get(word, ())]

    def test(self, file: str, seed: int) -> Outcome | None:
        units = self.units(file)
        if not units:
            return None
        suites = [name for unit in units for name in self._suites(unit)]
        try:
            changed = {unit: self.workplace.compile(unit) for unit in units}
        except StaticAssertion:
            return Outcome("static_assert", "of a test")
        except DoesNotCompile:
            return None
        program = self.workplace.folder / "suite"
        self.workplace.link(self.suite.words, program, changed)
        patterns = ":".join(f"{name}.*:*/{name}.*" for name in suites)
        return outcome_of(self.workplace.run(
            [str(program), "--gtest_fail_fast", "--gtest_color=no", f"--gtest_filter={patterns}"],
            self.suite.limit, {"PXM_TEST_SEED": str(seed)}))

    def _suites(self, unit: str) -> list[str]:
        text = (self.base.source / self.base.units[unit].source).read_text("ascii")
        return sorted(set(re.findall(r"^TEST\w*\((\w+),", text, re.MULTILINE)))
