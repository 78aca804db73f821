# SPDX-License-Identifier: MIT
"""Where one mutant at a time is compiled and linked: a copy of the sources of its own."""

import hashlib
import os
import re
import resource
import shutil
import signal
import subprocess
from collections.abc import Iterable, Sequence
from dataclasses import dataclass
from pathlib import Path

from mutation.base_build import BaseBuild
from mutation.places import fewer_rows

KERNEL_LISTS = ("decode/kernels.def", "encode/kernels.def")
DROPPED = {"-Wall", "-Wextra", "-Wconversion", "-Werror", "-MD"}
DROPPED_WITH_VALUE = {"-MT", "-MF"}


class DoesNotCompile(Exception):
    pass


class StaticAssertion(Exception):
    pass


@dataclass(frozen=True)
class Finished:
    status: int
    output: str


def limited(cpu_seconds: int) -> None:
    """In a child: what a mutant may use. An endless loop or store ends by it."""
    resource.setrlimit(resource.RLIMIT_CPU, (cpu_seconds, cpu_seconds + 2))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 30, 1 << 30))


class Workplace:
    def __init__(self, base: BaseBuild, folder: Path) -> None:
        self.base, self.folder = base, folder
        self.source = folder / "source"
        self.fewer = folder / "fewer"
        self.seen: dict[str, bytes] = {}
        self._preprocessed: dict[str, bytes] = {}
        shutil.rmtree(folder, ignore_errors=True)
        shutil.copytree(base.source, self.source)
        for name in KERNEL_LISTS:
            place = self.fewer / name
            place.parent.mkdir(parents=True)
            place.write_text(fewer_rows((base.source / name).read_text("ascii")), "ascii")

    def run(self, words: list[str], cpu_seconds: int, environment: dict[str, str] | None = None,
            wall_seconds: int = 900) -> Finished:
        log = self.folder / "output"
        with open(log, "wb") as output:
            process = subprocess.Popen(
                words, cwd=self.base.build, stdout=output, stderr=subprocess.STDOUT,
                stdin=subprocess.DEVNULL, start_new_session=True,
                env={**os.environ, **(environment or {})},
                preexec_fn=lambda: limited(cpu_seconds))
            try:
                status = process.wait(wall_seconds)
            except subprocess.TimeoutExpired:
                status = -signal.SIGXCPU
            finally:
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
                process.wait()
        return Finished(status, log.read_bytes().decode("utf-8", "replace"))

    def _words(self, unit: str, output: Path, fewer: bool,
               source: Path | None = None) -> list[str]:
        source = source or self.source
        words: list[str] = []
        skip = False
        for word in self.base.units[unit].words:
            if skip or word in DROPPED or word in DROPPED_WITH_VALUE:
                skip = word in DROPPED_WITH_VALUE and not skip
                continue
            if words and words[-1] == "-o":
                word = str(output)
            elif word == f"-I{self.base.source}":
                if fewer:
                    words.append(f"-I{self.fewer}")
                word = f"-I{source}"
            elif word.startswith(f"{self.base.source}/"):
                word = word.replace(str(self.base.source), str(source))
            words.append(re.sub(rf"{re.escape(str(self.base.build))}/libpxmcc90lgc\.so[.\d]*",
                                str(self.library), word))
        # The one warning of the project's that tells a program without meaning from a bad style.
        return [*words, "-Werror=return-type"]

    @property
    def library(self) -> Path:
        return self.folder / "libpxmcc90lgc.so"

    def is_touched(self, unit: str) -> bool:
        """Whether the compiler would read other text than without a mutant."""
        output = self.folder / "preprocessed"
        finished = self.run([*self._words(unit, output, False), "-E", "-P"], 60)
        text = output.read_bytes() if finished.status == 0 else b""
        return text != self._preprocessed.setdefault(unit, text)

    def remember(self, units: Iterable[str]) -> None:
        """Preprocesses units; no mutant may be in place."""
        for unit in units:
            if unit not in self._preprocessed:
                self.is_touched(unit)

    def compile(self, unit: str, fewer: bool = False, extra: Sequence[str] = (),
                source: Path | None = None) -> Path:
        """The object of a unit as the sources of this place make it, or other ones."""
        kind = "fewer" if fewer else "extra" if extra else "whole"
        output = self.folder / "objects" / kind / unit
        output.parent.mkdir(parents=True, exist_ok=True)
        output.unlink(missing_ok=True)
        finished = self.run([*self._words(unit, output, fewer, source), *extra], 180)
        if finished.status:
            if re.search(r"static assertion failed", finished.output):
                raise StaticAssertion(finished.output)
            raise DoesNotCompile(finished.output)
        return output

    def digest(self, unit: str, fewer: bool = False) -> bytes:
        return hashlib.sha256(self.compile(unit, fewer).read_bytes()).digest()

    def unchanged(self, unit: str, fewer: bool = False) -> bytes:
        """What the unit is without a mutant; asked for before one is in place."""
        key = f"{unit} {fewer}"
        if key not in self.seen:
            self.seen[key] = self.digest(unit, fewer)
        return self.seen[key]

    def link(self, words: list[str], output: Path, changed: dict[str, Path],
             first: list[Path] | None = None) -> None:
        """Links with changed objects in place of those of the base build; `first` have those of
        their functions that others define too."""
        linked = [str(output) if i and words[i - 1] == "-o" else str(changed.get(word, word))
                  for i, word in enumerate(words)]
        extra = [str(path) for path in first or []]
        options = ["-Wl,-z,muldefs"] if extra else []
        if "-shared" not in words:  # the library is to be as its own linker makes it
            options.append("-fuse-ld=lld")
        finished = self.run([linked[0], *options, *extra, *linked[1:]], 60)
        if finished.status:
            raise DoesNotCompile(finished.output)

    def put(self, file: str, text: str) -> None:
        (self.source / file).write_text(text, "ascii")
