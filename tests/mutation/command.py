# SPDX-License-Identifier: MIT
"""Changes the library's sources one place at a time and says which tests notice."""

import argparse
import os
import signal
import subprocess
import sys
import time
from collections import Counter
from concurrent.futures import FIRST_COMPLETED, Future, ProcessPoolExecutor, wait
from pathlib import Path

from mutation import equivalent, report
from mutation.base_build import BaseBuild, copy_sources
from mutation.judge import JUDGED, SURVIVED, Judge, Verdict
from mutation.mutants import FOLDERS, Mutant, all_mutants, in_order, key_of
from mutation.results import Results

ROOT = Path(__file__).resolve().parent.parent.parent
_judges: list[Judge] = []

UNFINISHED = 75  # to scripts/prove: the same command goes on


def parse(arguments: list[str]) -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__, allow_abbrev=False)
    parser.add_argument("--list", action="store_true", help="all mutants, one a line")
    parser.add_argument("--count", type=int, default=0, metavar="N",
                        help="until N are judged (all)")
    parser.add_argument("--seed", type=int, default=1, help="of the order (1)")
    parser.add_argument("--jobs", type=int, default=1, help="mutants at a time (1)")
    parser.add_argument("--file", metavar="PREFIX", default="", help="only those of some files")
    parser.add_argument("--operator", default="", help="only those of one operator")
    parser.add_argument("--line", type=int, default=0, help="only those of one line")
    parser.add_argument("--survivors", action="store_true",
                        help="judge again what has survived, after tests have changed")
    parser.add_argument("--long", action="store_true",
                        help="the long tests for what has survived")
    parser.add_argument("--report", action="store_true",
                        help="write docs/mutations.md and docs/mutations.tsv, which a run does too")
    parser.add_argument("--seconds", type=int, default=0, metavar="S",
                        help="begin no mutant after S seconds")
    return parser.parse_args(arguments)


def _prepare(base: BaseBuild, folder: Path, seed: int) -> None:
    signal.signal(signal.SIGINT, signal.SIG_IGN)  # a mutant that has begun is judged
    signal.signal(signal.SIGTERM, signal.SIG_DFL)
    _judges.append(Judge(base, folder / f"place-{os.getpid()}", seed))


def _judge(mutant: Mutant, longer: bool) -> Verdict:
    judge = _judges[0]
    return judge.judge_longer(mutant) if longer else judge.judge(mutant)


class Run:
    def __init__(self, options: argparse.Namespace, folder: Path, results: Results) -> None:
        self.options, self.folder, self.results = options, folder, results
        self.started = time.monotonic()
        tree = (folder / "tree").resolve()
        self.base = BaseBuild(tree / "source", tree / "base")

    def judged(self) -> int:
        return sum(result.verdict.verdict in JUDGED for result in self.results.found.values())

    def go(self, mutants: list[Mutant]) -> None:
        copy_sources(ROOT, self.base.source)
        self.base.make(self.options.jobs, self.options.long)
        for name in ("units", "library_words", "made_from", "tests", "programs", "fast_programs"):
            getattr(self.base, name)
        outcome = Judge(self.base, self.folder / "place-0", self.options.seed).unmutated()
        if outcome:
            raise SystemExit(f"mutate: without a mutant {outcome.test} {outcome.how}")
        left = iter(mutants)
        running: dict[Future[Verdict], Mutant] = {}
        with ProcessPoolExecutor(self.options.jobs, initializer=_prepare,
                                 initargs=(self.base, self.folder, self.options.seed)) as pool:
            try:
                while True:
                    while len(running) < self.options.jobs and self._goes_on():
                        mutant = next(left, None)
                        if mutant is None:
                            break
                        running[pool.submit(_judge, mutant, self.options.long)] = mutant
                    if not running:
                        break
                    finished, _ = wait(running, return_when=FIRST_COMPLETED)
                    for future in finished:
                        self._note(running.pop(future), future.result())
            except KeyboardInterrupt:
                print("mutate: stops after those that have begun; the same command goes on",
                      file=sys.stderr)
                for future, mutant in running.items():
                    self._note(mutant, future.result())
                raise SystemExit(130) from None

    def _goes_on(self) -> bool:
        seconds = time.monotonic() - self.started
        if self.options.seconds and seconds > self.options.seconds:
            return False
        again = self.options.survivors or self.options.long
        return again or not self.options.count or self.judged() < self.options.count

    def _note(self, mutant: Mutant, verdict: Verdict) -> None:
        before = self.results.found.get(mutant.identity)
        if before and not verdict.places:
            verdict.places = before.verdict.places
        self.results.add(mutant, verdict)
        by = f" by {verdict.test} ({verdict.how}, {verdict.place})" if verdict.test else ""
        print(f"{self.judged()} {mutant.file}:{mutant.line} {mutant.operator}: "
              f"{verdict.verdict}{by} {verdict.seconds} s", flush=True)
        if verdict.verdict == SURVIVED:
            print(f"    - {mutant.original}\n    + {mutant.changed}", flush=True)


def chosen(options: argparse.Namespace, results: Results) -> list[Mutant]:
    mutants = [mutant for mutant in in_order(all_mutants(ROOT), options.seed)
               if mutant.file.startswith(options.file)
               and options.operator in ("", mutant.operator)
               and options.line in (0, mutant.line)]
    if options.survivors or options.long:
        return [mutant for mutant in mutants if mutant.identity in results.found
                and results.found[mutant.identity].verdict.verdict == SURVIVED
                and not (options.long
                         and results.found[mutant.identity].verdict.stage == "long")]
    return [mutant for mutant in mutants if mutant.identity not in results.found]


def _printed_by(*command: str) -> str:
    return subprocess.run(command, cwd=ROOT, check=True, capture_output=True,
                          text=True).stdout.splitlines()[0]


def write_report(options: argparse.Namespace, results: Results) -> int:
    """The number of mutants that have survived without a reason."""
    mutants = all_mutants(ROOT)
    known = {mutant.identity for mutant in mutants}
    found = [result for result in results.found.values() if result.identity in known]
    reasons = equivalent.reasons(ROOT / "tests/mutation/equivalent.txt", mutants)
    last = _printed_by("git", "log", "-1", "--format=%h", "--", *FOLDERS)
    where = report.Circumstances(last, _printed_by("g++", "--version"), options.seed, len(mutants))
    (ROOT / "docs/mutations.md").write_text(report.page(found, reasons, where), "ascii")
    (ROOT / "docs/mutations.tsv").write_text(report.table(found, reasons), "ascii")
    return sum(result.verdict.verdict == SURVIVED and result.identity not in reasons
               for result in found)


def main(arguments: list[str]) -> int:
    options = parse(arguments)
    folder = ROOT / "build/mutation"
    (folder / "tree").mkdir(parents=True, exist_ok=True)
    results = Results(folder / f"{key_of(ROOT)}.jsonl")
    mutants = chosen(options, results)
    if options.list:
        for mutant in mutants:
            print(f"{mutant.identity} {mutant.file}:{mutant.line} {mutant.operator}: "
                  f"{mutant.original} => {mutant.changed}")
        print(f"cases: {len(mutants)} mutants")
        return 0
    if options.report:
        return 1 if write_report(options, results) else 0
    run = Run(options, folder, results)
    signal.signal(signal.SIGINT, signal.default_int_handler)
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    run.go(mutants)
    print(Counter(result.verdict.verdict for result in results.found.values()))
    print(f"cases: {run.judged()} mutants")
    print(f"seed: {options.seed}")
    if survivors := write_report(options, results):
        print(f"mutate: {survivors} have survived; docs/mutations.md names them", file=sys.stderr)
        return 1
    return 0 if run.judged() >= (options.count or 0) else UNFINISHED
