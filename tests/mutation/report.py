# SPDX-License-Identifier: MIT
"""docs/mutations.md and docs/mutations.tsv, made from the results of a run."""

import os
from collections import Counter
from collections.abc import Callable, Iterable
from dataclasses import dataclass

from mutation.judge import JUDGED, KILLED, STATIC_ASSERTION
from mutation.results import Result

COLUMNS = ("fast tests", "static assertions", "sanitizers", "long tests", "equivalent", "survived")


@dataclass(frozen=True)
class Circumstances:
    """Where and how the results were found."""

    commit: str
    compiler: str
    seed: int
    all_mutants: int


def column_of(result: Result, reasons: dict[str, str]) -> str:
    verdict = result.verdict
    if verdict.verdict == STATIC_ASSERTION:
        return "static assertions"
    if verdict.verdict == KILLED:
        return {"long": "long tests", "sanitizers": "sanitizers"}.get(verdict.stage, "fast tests")
    return "equivalent" if result.identity in reasons else "survived"


def difference(result: Result) -> tuple[str, str]:
    """What stood there and what stands there now, without what is the same around it."""
    a, b = result.original, result.changed
    start = len(os.path.commonprefix([a, b]))
    end = len(os.path.commonprefix([a[start:][::-1], b[start:][::-1]]))
    return a[start:len(a) - end], b[start:len(b) - end]


def _table(title: str, results: Iterable[Result], group: Callable[[Result], str],
           reasons: dict[str, str]) -> list[str]:
    counts: dict[str, Counter[str]] = {}
    for result in results:
        for name in (group(result), "all"):
            counts.setdefault(name, Counter())[column_of(result, reasons)] += 1
    lines = [f"| {title} | mutants | " + " | ".join(COLUMNS) + " |",
             "|---|--:" + "|--:" * len(COLUMNS) + "|"]
    for name in [*sorted(name for name in counts if name != "all"), "all"]:
        row = counts.get(name, Counter())
        cells = [str(row[column] or "") for column in COLUMNS]
        lines.append(f"| {name} | {sum(row.values())} | " + " | ".join(cells) + " |")
    return [*lines, ""]


def _listed(results: list[Result], reasons: dict[str, str]) -> list[str]:
    lines = []
    further = {"sanitizers": ", under sanitizers too",
               "long": ", under sanitizers and by the long tests too"}
    for result in results:
        lines += [f"`{result.file}:{result.line}`, {result.operator}"
                  + f"; tried in {', '.join(result.verdict.places)}"
                  + further.get(result.verdict.stage, "")
                  + (f". {reasons[result.identity]}" if result.identity in reasons else "."),
                  "", "```diff", f"- {result.original}", f"+ {result.changed}".rstrip(), "```", ""]
    return lines


def page(found: Iterable[Result], reasons: dict[str, str], where: Circumstances) -> str:
    everything = sorted(found, key=lambda result: (result.file, result.line, result.changed))
    judged = [result for result in everything if result.verdict.verdict in JUDGED]
    left_out = Counter(result.verdict.verdict for result in everything
                       if result.verdict.verdict not in JUDGED)
    seconds = sum(result.verdict.seconds for result in everything)
    by_column: dict[str, list[Result]] = {}
    for result in judged:
        by_column.setdefault(column_of(result, reasons), []).append(result)
    survived, equivalent = by_column.get("survived", []), by_column.get("equivalent", [])
    lines = [
        "# Mutations", "",
        "<!-- Written by scripts/mutate --report. -->", "",
        "`scripts/mutate` changes the library's sources one place at a time and says which test",
        "notices. A mutant counts if it compiles and the code of some object differs from that of",
        "the library. It is tried where its code differs, level by level, and ends with the first",
        "test that fails, crashes or does not end. What survives has been through the tests of",
        "objects, those that compile the changed source themselves, and those of the shared",
        "library with its audits; where it is said, also through those of objects that are",
        "compiled with the sanitizers of address and undefined behaviour, and the long ones.", "",
        f"- Sources of commit {where.commit}, compiled by {where.compiler}.",
        f"- {where.all_mutants} mutants are possible; {len(everything)} were tried, in an order "
        f"that is even over files and operators, with seed {where.seed}.",
        f"- {left_out['does not compile']} do not compile, {left_out['same code']} give the same "
        f"code; **{len(judged)} were judged**: {len(judged) - len(survived) - len(equivalent)} "
        f"were noticed, {len(equivalent)} are equivalent, {len(survived)} survived.",
        f"- {seconds / 3600:.1f} hours of one core, {seconds / max(1, len(judged)):.1f} seconds "
        "for each that was judged.", ""]
    lines += _table("operator", judged, lambda result: result.operator, reasons)
    lines += _table("file", judged, lambda result: result.file, reasons)
    lines += ["## Survivors", ""]
    lines += _listed(survived, reasons) or ["None.", ""]
    lines += ["## Equivalent mutants", "",
              "They give other code that does the same (`tests/mutation/equivalent.txt`).", ""]
    lines += _listed(equivalent, reasons)
    lines += [f"cases: {len(judged)} mutants", f"seed: {where.seed}"]
    return "\n".join(lines) + "\n"


def table(found: Iterable[Result], reasons: dict[str, str]) -> str:
    """A line for each mutant that was judged."""
    lines = ["file\tline\toperator\tfrom\tto\tverdict\tplace\ttest"]
    for result in sorted(found, key=lambda r: (r.file, r.line, r.operator, r.changed)):
        if result.verdict.verdict in JUDGED:
            verdict = column_of(result, reasons)
            cells = [result.file, str(result.line), result.operator, *difference(result), verdict,
                     result.verdict.place, result.verdict.test]
            lines.append("\t".join(cell.strip() or "-" for cell in cells))
    return "\n".join(lines) + "\n"
