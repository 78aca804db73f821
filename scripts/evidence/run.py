# SPDX-License-Identifier: MIT
"""Runs parts, and keeps what came out."""

from __future__ import annotations

import os
import subprocess
import sys
import time
from collections.abc import Sequence
from pathlib import Path

from evidence.page import page
from evidence.parts import SECONDS, UNFINISHED, Part
from evidence.store import Failure, Result, Store, read_cases, read_seed

_COMPILERS = {"g++": "GCC", "clang++": "Clang", "clang++-19": "Clang"}


def _version(compiler: str) -> str:
    """As the compiler names itself; None of a command that is none."""
    if compiler not in _COMPILERS:
        return compiler
    output = subprocess.run((compiler, "-dumpfullversion", "-dumpversion"), check=True,
                            capture_output=True, text=True).stdout
    return f"{_COMPILERS[compiler]} {output.splitlines()[0]}"


def _processor() -> str:
    for line in Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            return f"{line.split(':', 1)[1].strip()}, {os.cpu_count()} cores"
    return "unknown"


class Progress:
    """One line that is renewed on a terminal; elsewhere a line every minute."""

    def __init__(self) -> None:
        self.shown_at = time.monotonic()

    def show(self, text: str) -> None:
        if sys.stderr.isatty():
            print(f"\r{text:<78}\r", end="", file=sys.stderr, flush=True)
        elif text and time.monotonic() - self.shown_at >= 60:
            self.shown_at = time.monotonic()
            print(text, file=sys.stderr, flush=True)


class Runner:
    """Proves the parts that are due, one after another."""

    def __init__(self, source: Path, store: Store, parts: Sequence[Part]) -> None:
        self.source, self.store, self.parts = source, store, parts
        self.page = source / "docs/evidence.md"
        self.progress = Progress()

    def run(self, chosen: Sequence[Part], seconds: float, again: bool) -> None:
        """Starts nothing more when the time is up; the page is written after each part."""
        if changed := self.store.sources.changed_since_commit(chosen):
            raise Failure(f"commit first: {', '.join(changed[:3])} is not what the commit has")
        until = time.monotonic() + seconds
        for part in chosen:
            before = self.store.load(part)
            if before is not None and before.state == "held" and not again:
                continue
            if time.monotonic() >= until:
                break
            self._prove(part, until, before)
            self.write_page()
        self.write_page()

    def write_page(self) -> None:
        new = self.page.with_suffix(".new")
        new.write_text(page(self.parts, [self.store.load(part) for part in self.parts]))
        new.replace(self.page)

    def _prove(self, part: Part, until: float, before: Result | None) -> None:
        log = self.store.log(part)
        log.write_text("")
        self._build(part, log)
        left = max(60.0, min(until - time.monotonic(), 1e6))
        command = [word.replace(SECONDS, f"{left:.0f}") for word in part.command]
        began = time.monotonic()
        status, output = self._command(command, log, part.name, part.environment)
        states = {0: "held", UNFINISHED: "unfinished"}
        result = Result(state=states.get(status, "failed"), cases=read_cases(output),
                        seed=read_seed(output), seconds=time.monotonic() - began,
                        compiler=", ".join(map(_version, part.compilers)),
                        processor=_processor(), commit=self.store.sources.commit())
        if result.state == "held" and not result.cases:
            result.state = "failed"  # a proof of nothing
        if before is not None and before.state == "unfinished":
            result.seconds += before.seconds
        self.store.save(part, result)
        counts = ", ".join(f"{number:,} {what}" for number, what in result.cases)
        print(f"{result.state:10} {part.name}: {counts} ({result.seconds:.0f} s)", flush=True)
        if result.state == "failed":
            print(f"{'':10} see {log.relative_to(self.source)}", flush=True)

    def _build(self, part: Part, log: Path) -> None:
        for preset, targets in part.builds:
            for command in (["cmake", "--preset", preset],
                            ["cmake", "--build", "--preset", preset, "--parallel",
                             str(os.cpu_count() or 1), "--target", *targets]):
                status, _ = self._command(command, log, f"{part.name}: building {preset}", {})
                if status != 0:
                    raise Failure(f"{' '.join(command)} fails; see {log.relative_to(self.source)}")

    def _command(self, command: Sequence[str], log: Path, title: str,
                 environment: dict[str, str]) -> tuple[int, str]:
        """The status of a command and its output, which goes to the log."""
        began = time.monotonic()
        with log.open("a+") as file:
            start = file.seek(0, os.SEEK_END)
            with subprocess.Popen(command, cwd=self.source, stdout=file, stderr=subprocess.STDOUT,
                                  env={**os.environ, **environment}) as process:
                try:
                    while process.poll() is None:
                        self.progress.show(f"{title}: {time.monotonic() - began:.0f} s")
                        time.sleep(0.2)
                except BaseException:
                    process.terminate()
                    raise
            self.progress.show("")
            file.seek(start)
            return process.returncode, file.read()
