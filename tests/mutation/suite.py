# SPDX-License-Identifier: MIT
"""One program of all tests that are linked with the library's objects, quickest first, and what it
says of a mutant."""

import re
import signal
from dataclasses import dataclass
from functools import cached_property
from pathlib import Path

from mutation.base_build import BaseBuild
from mutation.workplace import Finished, Workplace

QUICKEST_FIRST = ("examples_test", "frame_test", "encode_test", "twist_test", "callers_test",
                  "depth_test", "decode_test", "geometry_test")
ORACLE = "oracle_test"  # sees nothing of the library
MACROS = {"DECODE": "decode", "ENCODE": "encode", "DEPTH": "depth", "TWIST": "twist"}
# Suites that concern one kind without a conversion's name, and those that see no object: they
# compile the library's sources themselves.
SUITES = {"Twist": "twist", "TwistExamples": "twist", "Depth": "depth", "Variants": "decode",
          "Columns": "decode"}
OF_SOURCES = ("Chains", "LanePacking", "Samples", "DecodePlans", "Forms", "Packing", "Luma",
              "Chroma", "LaneLuma", "LaneParts", "LaneChroma", "EncodePlans", "BlockPlans",
              "Scratch")


@dataclass(frozen=True)
class Outcome:
    """The test that noticed, or none."""

    test: str
    how: str = ""


def outcome_of(finished: Finished) -> Outcome | None:
    if finished.status == 0:
        return None
    failed = re.search(r"^\[  FAILED  \] ([\w./]+)", finished.output, re.MULTILINE)
    if failed and not re.search(r"^\[ RUN {6}\] \S+\s*\Z", finished.output, re.MULTILINE):
        return Outcome(failed[1], "fails")
    started = re.findall(r"^\[ RUN {6}\] (\S+)", finished.output, re.MULTILINE)
    test = started[-1] if started else "before the first test"
    if finished.status in (-signal.SIGXCPU, -signal.SIGKILL):
        return Outcome(test, "does not end")
    if finished.status < 0:
        return Outcome(test, signal.Signals(-finished.status).name)
    return Outcome(test, "fails")


class Suite:
    def __init__(self, base: BaseBuild, is_long: bool) -> None:
        self.base = base
        programs = [name for name in base.programs
                    if is_long != (name in base.fast_programs)
                    and name != ORACLE and not base.loads_library(name)]
        self.programs = sorted(programs, key=lambda name: (
            QUICKEST_FIRST.index(name) if name in QUICKEST_FIRST else len(QUICKEST_FIRST), name))
        self.name = "long_suite" if is_long else "suite"
        self.limit = 3600 if is_long else 60

    @cached_property
    def words(self) -> list[str]:
        """The command that links the program, with the tests' objects in their order."""
        tests: list[str] = []
        archives: list[str] = []
        library: list[str] = []
        for program in self.programs:
            for word in self.base.words_of(program)[1:]:
                place = tests if word.startswith("tests/") and word.endswith(".o") else \
                    library if word.endswith(".o") else \
                    archives if word.endswith(".a") or word.startswith("-l") else None
                if place is not None and word not in place:
                    place.append(word)
        return ["g++", "-o", self.name, *library, *tests, *archives]

    @cached_property
    def conversions(self) -> list[tuple[str, str]]:
        """The kind and name of each."""
        text = (self.base.source / "frame/conversions.def").read_text("ascii")
        return [(MACROS[macro], name) for macro, name in
                re.findall(r"^(DECODE|ENCODE|DEPTH|TWIST)\((\w+),", text, re.MULTILINE)]

    def filter(self, kind: str) -> str:
        """What leaves out the tests that cannot see kernels of the kind."""
        if kind == "frame":
            return "--gtest_filter=*"
        left_out = [f"*/{name}" for other, name in self.conversions if other != kind]
        left_out += [f"{suite}.*" for suite, other in SUITES.items() if other != kind]
        left_out += [f"{suite}.*" for suite in OF_SOURCES]
        return "--gtest_filter=*-" + ":".join(left_out)

    def run(self, workplace: Workplace, program: Path, kind: str, variant: str,
            seed: int) -> Outcome | None:
        environment = {"PXM_TEST_SEED": str(seed), "PXM_TEST_STRIDE": "6"}
        if variant:
            environment["PXM_TEST_VARIANTS"] = variant
        return outcome_of(workplace.run([str(program), "--gtest_fail_fast", "--gtest_color=no",
                                         self.filter(kind)], self.limit, environment,
                                        wall_seconds=20 * self.limit))
