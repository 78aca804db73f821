# SPDX-License-Identifier: MIT
"""Changed objects compiled with sanitizers, as a stage of the tests has all of them: they notice
what goes astray without a byte of the output being another."""

from pathlib import Path

from mutation.base_build import BaseBuild
from mutation.places import Place
from mutation.suite import Outcome, Suite
from mutation.workplace import Workplace

SANITIZERS = ["-fsanitize=address,undefined", "-fno-sanitize-recover=all"]


class Sanitized:
    def __init__(self, base: BaseBuild, workplace: Workplace, suite: Suite) -> None:
        self.base, self.workplace, self.suite = base, workplace, suite

    def test(self, place: Place, seed: int) -> Outcome | None:
        if not place.kernels:
            return None
        outcome = self._run(place, self.workplace.source, seed)
        if outcome and self._run(place, self.base.source, seed):
            raise SystemExit(f"mutate: without a mutant {outcome.test} fails under sanitizers")
        return outcome

    def _run(self, place: Place, source: Path, seed: int) -> Outcome | None:
        objects = {}
        for unit in (place.kernels, *place.others):
            if unit.endswith(".cpp.o"):
                objects[unit] = self.workplace.compile(unit, extra=["-O1", "-g1", *SANITIZERS],
                                                       source=source)
        program = self.workplace.folder / "sanitized"
        self.workplace.link([*self.suite.words, *SANITIZERS], program, objects)
        return self.suite.run(self.workplace, program, place.kind, place.variant, seed)
