# SPDX-License-Identifier: MIT
"""The fuzzers: how one is started and stopped, and where it leaves what it finds."""

import contextlib
import os
import re
import signal
import struct
import subprocess
import sys
import time
from collections.abc import Iterator
from dataclasses import dataclass, field
from pathlib import Path

from fuzzing.targets import Target

# What a report begins with; the first such line says what is wrong.
REPORT = re.compile(r"ERROR: |WARNING: MemorySanitizer|runtime error:|^\S+ in \w\w, -?\d+ x")


class Finding(Exception):
    """An input that ends the program."""

    def __init__(self, what: str, path: Path, repeat: str) -> None:
        self.what = what
        self.path = path
        super().__init__(f"fuzz: {what}\nfuzz: the input is {path}\nfuzz: repeat it by: {repeat}")


@dataclass(frozen=True)
class Engine:
    name: str
    packages: list[str]
    environment: dict[str, str]
    stop: signal.Signals
    inputs: str = "corpus"  # where it keeps the inputs that are worth keeping
    blind_to: list[str] = field(default_factory=list)  # deliberate faults that it cannot see

    def is_afl(self) -> bool:
        return self.name == "afl"


LIBFUZZER_PACKAGES = ["clang", "libclang-rt-14-dev", "cmake", "libgtest-dev", "libpng-dev"]
# Where a byte of the heap was allocated is seen when a finding is repeated.
FAST = {"ASAN_OPTIONS": "malloc_context_size=0:quarantine_size_mb=1"}
# The symbols of a report are looked up when it is repeated.
AFL = {
    "AFL_NO_UI": "1", "AFL_AUTORESUME": "1", "AFL_SKIP_CPUFREQ": "1", "AFL_NO_AFFINITY": "1",
    "AFL_I_DONT_CARE_ABOUT_MISSING_CRASHES": "1", "AFL_BENCH_UNTIL_CRASH": "1",
    "ASAN_OPTIONS": "abort_on_error=1:symbolize=0:detect_leaks=0",
    "UBSAN_OPTIONS": "abort_on_error=1:symbolize=0:halt_on_error=1",
}
ENGINES = {engine.name: engine for engine in (
    Engine("asan", LIBFUZZER_PACKAGES, FAST, signal.SIGUSR1),
    # It sees what becomes of values, not who reads them.
    Engine("msan", LIBFUZZER_PACKAGES, {}, signal.SIGUSR1,
           blind_to=["read-on"]),
    Engine("afl", LIBFUZZER_PACKAGES + ["afl++"], AFL, signal.SIGINT, "corpus/default/queue"),
)}


@dataclass
class Run:
    """One run of one engine on one target."""
    engine: Engine
    target: Target
    program: Path
    place: Path  # where the working corpus, the counts and the findings are
    seed: int
    process: subprocess.Popen[bytes] | None = None
    began: float = 0
    stopped: bool = False

    def __post_init__(self) -> None:
        self.corpus = self.place / "corpus"
        self.findings = self.place / "findings"
        self.log = self.place / "log"
        self.counts = self.place / f"{self.target.version()}.calls"
        self.findings.mkdir(parents=True, exist_ok=True)

    def counted(self) -> tuple[int, int]:
        try:
            calls, rejected = struct.unpack("<QQ", self.counts.read_bytes())
        except (FileNotFoundError, struct.error):
            return 0, 0
        return calls, rejected

    def calls(self) -> int:
        return self.counted()[0]

    def other_counts(self) -> list[str]:
        rejected = self.counted()[1]
        return [f"cases: {rejected} rejected calls among them"] if rejected else []

    def command(self) -> list[str]:
        if self.engine.is_afl():
            seeds = self.place / "seeds"
            self.target.seed_corpus(seeds)
            return ["afl-fuzz", "-i", str(seeds), "-o", str(self.corpus), "-s", str(self.seed),
                    "-G", str(self.target.most_bytes), "-m", "none", "-t", "5000",
                    "--", str(self.program)]
        self.target.seed_corpus(self.corpus)
        # Without counters and weights the corpus stays small, and calls take the time.
        return [str(self.program), f"-seed={self.seed}", f"-max_len={self.target.most_bytes}",
                "-len_control=0", "-entropic=0", "-use_counters=0", "-rss_limit_mb=8192",
                f"-artifact_prefix={self.findings}/", str(self.corpus)]

    @contextlib.contextmanager
    def started(self) -> Iterator[None]:
        environment = {**os.environ, **self.engine.environment, **self.target.environment,
                       "PXM_FUZZ_CALLS": str(self.counts)}
        self.began = time.time()
        with self.log.open("wb") as log:
            self.process = subprocess.Popen(self.command(), env=environment, stdout=log,
                                            stderr=log)
        try:
            yield
        finally:
            if self.is_running():
                self.stop()

    def is_running(self) -> bool:
        return self.process is not None and self.process.poll() is None

    def stop(self) -> None:
        """Lets the engine finish what it does."""
        if self.process is None:
            return
        self.stopped = True
        self.process.send_signal(self.engine.stop)
        try:
            self.process.wait(60)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()

    def require_success(self) -> None:
        """Raises a Finding if there is one."""
        report = self.log.read_text(encoding="utf-8", errors="replace")
        crashes = self.crashes()
        if crashes:
            path = max(crashes, key=lambda file: file.stat().st_mtime)
            if self.engine.is_afl():
                report = self.repeated(path)
            if not self.target.environment:
                print(report[-6000:], file=sys.stderr)
            raise Finding(what_is_wrong(report), path, f"{self.program} {path}")
        if self.process is not None and self.process.returncode != 0 and not self.stopped:
            print(report[-3000:], file=sys.stderr)
            sys.exit(f"fuzz: {self.program.name} has ended by itself; {self.log} says why")

    def crashes(self) -> list[Path]:
        """What this run has found; earlier findings stay where they are."""
        places = ([self.corpus / "default/crashes", self.corpus / "default/hangs"]
                  if self.engine.is_afl() else [self.findings])
        names = ("id", "crash-", "timeout-", "oom-", "leak-")
        return [file for place in places if place.is_dir() for file in place.iterdir()
                if file.name.startswith(names) and file.stat().st_mtime >= self.began]

    def repeated(self, path: Path) -> str:
        done = subprocess.run([self.program, path], check=False, capture_output=True,
                              env={**os.environ, **self.target.environment})
        return (done.stdout + done.stderr).decode(errors="replace")


def what_is_wrong(report: str) -> str:
    lines = [line for line in report.splitlines() if REPORT.search(line)]
    return lines[0].strip() if lines else "the program ends"
