# SPDX-License-Identifier: MIT
"""What becomes of one mutant."""

import hashlib
import resource
from collections.abc import Callable, Iterator
from dataclasses import dataclass, field
from pathlib import Path

from mutation.base_build import BaseBuild
from mutation.mutants import Mutant
from mutation.outside import Outside
from mutation.places import Place, Places
from mutation.sanitized import Sanitized
from mutation.sources import TestsOfSources
from mutation.suite import Outcome, Suite
from mutation.workplace import KERNEL_LISTS, DoesNotCompile, StaticAssertion, Workplace

KILLED = "killed"
STATIC_ASSERTION = "static assertion"
SAME_CODE = "same code"
DOES_NOT_COMPILE = "does not compile"
SURVIVED = "survived"
JUDGED = (KILLED, STATIC_ASSERTION, SURVIVED)


@dataclass
class Verdict:
    verdict: str
    stage: str = ""
    place: str = ""
    test: str = ""
    how: str = ""
    seconds: float = 0.0
    places: list[str] = field(default_factory=list)  # where the code changed, of a survivor


@dataclass
class Changed:
    """A place where a mutant's objects are others than those of the base build."""

    place: Place
    objects: dict[str, Path]

    @property
    def name(self) -> str:
        return self.place.name


def child_seconds() -> float:
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


class Judge:
    def __init__(self, base: BaseBuild, folder: Path, seed: int) -> None:
        self.base, self.seed = base, seed
        self.workplace = Workplace(base, folder)
        self.places = Places(base)
        self.suite = Suite(base, is_long=False)
        self.long_suite = Suite(base, is_long=True)
        self.outside = Outside(base, self.workplace)
        self.sanitized = Sanitized(base, self.workplace, self.suite)
        self.sources = TestsOfSources(base, self.workplace, self.suite)

    def unmutated(self) -> Outcome | None:
        """What would make every mutant look noticed."""
        program = self.workplace.folder / self.suite.name
        self.workplace.link(self.suite.words, program, {})
        digest = hashlib.sha256(program.read_bytes()).hexdigest()
        seen = self.workplace.folder.parent / "unmutated"
        if seen.is_file() and seen.read_text("ascii") == digest:
            return None
        outcome = self.suite.run(self.workplace, program, "frame", "", self.seed)
        for tag, (level, _) in self.places.variants.items():
            kernels = f"CMakeFiles/kernels_{level}.dir/decode/kernels.cpp.o"
            made = self.workplace.compile(kernels, fewer=True)
            self.workplace.link(self.suite.words, program, {}, [made])
            outcome = outcome or self.suite.run(self.workplace, program, "decode", tag, self.seed)
        outcome = outcome or self.outside.test([]) \
            or self.sources.test("vector/scratch.inl", self.seed)
        if outcome is None:
            seen.write_text(digest, "ascii")
        return outcome

    def judge(self, mutant: Mutant) -> Verdict:
        started = child_seconds()
        verdict = self._with(mutant, self._verdict)
        verdict.seconds = round(child_seconds() - started, 2)
        return verdict

    def judge_longer(self, mutant: Mutant) -> Verdict:
        """For one that survived: the long tests of each kind, at the first place that differs."""
        started = child_seconds()
        verdict = self._with(mutant, self._longer)
        verdict.seconds = round(child_seconds() - started, 2)
        return verdict

    def _with(self, mutant: Mutant,
              judged: Callable[[Mutant, dict[str, list[Place]]], Verdict]) -> Verdict:
        places = self.places.of(mutant.file)
        units = {unit for some in places.values() for place in some for unit in _units(place)}
        self.workplace.remember(units)
        text = (self.base.source / mutant.file).read_text("ascii")
        try:
            self.workplace.put(mutant.file, mutant.edit.applied(text))
            return judged(mutant, places)
        except DoesNotCompile:
            return Verdict(DOES_NOT_COMPILE)
        except StaticAssertion:
            return Verdict(STATIC_ASSERTION, "fast", test="static_assert")
        finally:
            self.workplace.put(mutant.file, text)

    def _verdict(self, mutant: Mutant, places: dict[str, list[Place]]) -> Verdict:
        survived: list[Changed] = []
        has_asked = False
        for some in places.values():
            for changed, is_whole in self._changes(mutant, some):
                outcome = self._test(changed, is_whole)
                if outcome:
                    return Verdict(KILLED, "fast", changed.name, outcome.test, outcome.how)
                if is_whole:
                    survived.append(changed)
                # Before other levels, which take long.
                outcome = None if has_asked else self.sources.test(mutant.file, self.seed)
                has_asked = True
                if outcome:
                    return Verdict(KILLED, "fast", "tests of sources", outcome.test, outcome.how)
        outcome = None if has_asked else self.sources.test(mutant.file, self.seed)
        if outcome:
            return Verdict(KILLED, "fast", "tests of sources", outcome.test, outcome.how)
        if not survived:
            return Verdict(SAME_CODE)
        outcome = self.outside.test(survived)
        if outcome:
            return Verdict(KILLED, "fast", "library", outcome.test, outcome.how)
        for changed in survived:
            outcome = self.sanitized.test(changed.place, self.seed)
            if outcome:
                return Verdict(KILLED, "sanitizers", changed.name, outcome.test, outcome.how)
        return Verdict(SURVIVED, "sanitizers", places=[changed.name for changed in survived])

    def _changes(self, mutant: Mutant, places: list[Place]) -> Iterator[tuple[Changed, bool]]:
        """Where the code differs: kernels of fewer rows, which say most of it in a third of the
        time, and whole ones once such have changed and not been noticed."""
        has_fewer = f"{places[0].kind}/kernels.def" in KERNEL_LISTS \
            and mutant.file not in KERNEL_LISTS
        for place in places if has_fewer else []:
            changed = self._changed(mutant, place, fewer=True)
            if changed:
                yield changed, False
                break
        else:
            # Where fewer rows are the same at each level, the whole list at one says enough.
            touched = [place for place in places if self._is_touched(place)]
            places = touched[:1] if has_fewer else touched
        for place in places:
            changed = self._changed(mutant, place, fewer=False)
            if changed:
                yield changed, True

    def _is_touched(self, place: Place) -> bool:
        return any(self.workplace.is_touched(unit) for unit in _units(place))

    def _changed(self, mutant: Mutant, place: Place, fewer: bool) -> Changed | None:
        if not self._is_touched(place):
            return None
        objects = {}
        is_same = True
        for unit in _units(place):
            is_fewer = fewer and unit == place.kernels
            if unit not in place.others or self.workplace.is_touched(unit):
                before = self._before(mutant, unit, is_fewer)
                made = self.workplace.compile(unit, is_fewer)
                objects[unit] = made
                is_same = is_same and made.read_bytes() == before
        return None if is_same else Changed(place, objects)

    def _before(self, mutant: Mutant, unit: str, fewer: bool) -> bytes:
        """The object without the mutant: of the base build, or made once of fewer rows."""
        if not fewer:
            return (self.base.build / unit).read_bytes()
        kept = self.workplace.folder / "unchanged" / unit
        if not kept.is_file():
            mutated = (self.workplace.source / mutant.file).read_text("ascii")
            self.workplace.put(mutant.file, (self.base.source / mutant.file).read_text("ascii"))
            made = self.workplace.compile(unit, fewer=True).read_bytes()
            self.workplace.put(mutant.file, mutated)
            kept.parent.mkdir(parents=True, exist_ok=True)
            kept.write_bytes(made)
        return kept.read_bytes()

    def _test(self, changed: Changed, is_whole: bool) -> Outcome | None:
        program = self.workplace.folder / self.suite.name
        if is_whole:
            self.workplace.link(self.suite.words, program, changed.objects)
        else:
            kernels = changed.objects[changed.place.kernels]
            others = {unit: made for unit, made in changed.objects.items() if made != kernels}
            self.workplace.link(self.suite.words, program, others, [kernels])
        return self.suite.run(self.workplace, program, changed.place.kind, changed.place.variant,
                              self.seed)

    def _longer(self, mutant: Mutant, places: dict[str, list[Place]]) -> Verdict:
        names = []
        program = self.workplace.folder / self.long_suite.name
        for some in places.values():
            for place in some:
                changed = self._changed(mutant, place, fewer=False)
                if changed is None:
                    continue
                names.append(changed.name)
                self.workplace.link(self.long_suite.words, program, changed.objects)
                outcome = self.long_suite.run(self.workplace, program, place.kind, place.variant,
                                              self.seed)
                if outcome:
                    return Verdict(KILLED, "long", changed.name, outcome.test, outcome.how)
                break
        return Verdict(SURVIVED, "long", ", ".join(names))


def _units(place: Place) -> list[str]:
    return [unit for unit in (place.kernels, *place.others) if unit]
