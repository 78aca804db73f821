# SPDX-License-Identifier: MIT
"""The build that mutants differ from: a copy of the sources, what ninja would run for each object,
and what each object was made from."""

import json
import os
import re
import shlex
import shutil
import subprocess
from dataclasses import dataclass
from functools import cached_property
from pathlib import Path


@dataclass(frozen=True)
class Unit:
    """An object and the command that compiles it."""

    output: str
    source: str
    words: tuple[str, ...]


def copy_sources(root: Path, to: Path) -> None:
    """Copies what git knows of or would add; like files keep their times, others go."""
    listed = subprocess.run(["git", "-C", root, "ls-files", "-co", "--exclude-standard"],
                            check=True, capture_output=True, text=True).stdout.splitlines()
    names = {name for name in listed if (root / name).is_file()}
    for name in sorted(names):
        source, copy = root / name, to / name
        if not copy.is_file() or copy.read_bytes() != source.read_bytes():
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, copy)
            shutil.copymode(source, copy)
    for path in to.rglob("*"):
        if path.is_file() and str(path.relative_to(to)) not in names:
            path.unlink()


class BaseBuild:
    def __init__(self, source: Path, build: Path) -> None:
        self.source, self.build = source, build

    def make(self, jobs: int, with_long_tests: bool) -> None:
        if not (self.build / "build.ninja").is_file():
            self._run("cmake", "--preset", "gcc", "-G", "Ninja", "-S", str(self.source),
                      "-B", str(self.build))
        self._run("ninja", "-C", str(self.build), f"-j{jobs}", "pxmcc90lgc",
                  *(f"tests/{name}" for name in self.programs
                    if with_long_tests or name in self.fast_programs))

    def _run(self, *command: str) -> str:
        finished = subprocess.run(command, cwd=self.source, text=True, capture_output=True)
        if finished.returncode:
            raise SystemExit(f"mutate: {shlex.join(command)} failed\n{finished.stdout[-4000:]}"
                             f"{finished.stderr[-4000:]}")
        return finished.stdout

    @cached_property
    def _edges(self) -> list[dict[str, str]]:
        made: list[dict[str, str]] = json.loads(
            self._run("ninja", "-C", str(self.build), "-t", "compdb", "-x"))
        return made

    @cached_property
    def units(self) -> dict[str, Unit]:
        """All objects by their names in the build tree."""
        units = {}
        for edge in self._edges:
            if edge["output"].endswith(".o") and " -c " in edge["command"]:
                words = shlex.split(edge["command"])
                words = words[os.path.basename(words[0]) == "ccache":]
                units[edge["output"]] = Unit(edge["output"], edge["file"], tuple(words))
        return units

    def _links(self, *targets: str) -> dict[str, list[str]]:
        """The words of commands that link, by what they make."""
        links = {}
        for line in self._run("ninja", "-C", str(self.build), "-t", "commands",
                              *targets).splitlines():
            words = shlex.split(line.removeprefix(": && ").split(" && ")[0])
            if "-o" in words and "-c" not in words:
                links[words[words.index("-o") + 1]] = words
        return links

    @cached_property
    def programs(self) -> list[str]:
        """The programs of tests that are linked with the library's objects."""
        return sorted(edge["output"].removeprefix("tests/") for edge in self._edges
                      if edge["output"].startswith("tests/")
                      and edge["output"].endswith("_test") and edge["output"].count("/") == 1)

    @cached_property
    def fast_programs(self) -> set[str]:
        """Those of the label `fast`."""
        text = (self.source / "tests/CMakeLists.txt").read_text("ascii")
        return set(re.findall(r"^ *pxm_add_test\((\w+) fast\b", text, re.MULTILINE))

    def loads_library(self, program: str) -> bool:
        """Whether a program of tests knows the shared library by its name."""
        return any("PXM_LIBRARY=" in word for name, unit in self.units.items()
                   if name.startswith(f"tests/CMakeFiles/{program}.dir/") for word in unit.words)

    def words_of(self, program: str) -> list[str]:
        return self._links(f"tests/{program}")[f"tests/{program}"]

    @cached_property
    def library_words(self) -> list[str]:
        links = self._links("libpxmcc90lgc.so")
        return next(words for name, words in links.items() if name.startswith("libpxmcc90lgc.so"))

    @cached_property
    def library_objects(self) -> list[str]:
        return [word for word in self.library_words if word.endswith(".o")]

    @cached_property
    def made_from(self) -> dict[str, set[str]]:
        """Files of the source tree that each object was made from."""
        made_from: dict[str, set[str]] = {}
        output = ""
        for line in self._run("ninja", "-C", str(self.build), "-t", "deps").splitlines():
            if line and not line.startswith(" "):
                output = line.split(": #deps")[0]
                made_from[output] = set()
            elif line.strip():
                path = os.path.normpath(self.build / line.strip())
                if path.startswith(f"{self.source}/"):
                    made_from[output].add(path.removeprefix(f"{self.source}/"))
        return made_from

    @cached_property
    def tests(self) -> list[dict[str, object]]:
        """What ctest would run."""
        listed = self._run("ctest", "--test-dir", str(self.build), "--show-only=json-v1",
                           "-L", "fast")
        tests: list[dict[str, object]] = json.loads(listed)["tests"]
        return tests
