# SPDX-License-Identifier: MIT
"""docs/evidence.md."""

from __future__ import annotations

from collections.abc import Sequence

from evidence.parts import Part
from evidence.store import Result

HEAD = """\
# Evidence

What has been tried to prove the library wrong, and how often. `scripts/prove` made this page: it
runs each command below, keeps what is done, and goes on another time where it stopped. A row is due
again when a file changes that it depends on.

"""

STATES = {"held": "held", "failed": "**failed**", "unfinished": "held so far"}


def time_of(seconds: float) -> str:
    if seconds < 10:
        return f"{seconds:.1f} s"
    if seconds < 100:
        return f"{seconds:.0f} s"
    if seconds < 6000:
        return f"{seconds / 60:.0f} min"
    return f"{seconds / 3600:.1f} h"


def row(part: Part, result: Result | None) -> str:
    claim = f"[{part.claim}](evidence.md#{part.name})"
    if result is None:
        return f"| {claim} | not run | | | | | |\n"
    cases = ", ".join(f"{number:,} {what}" for number, what in result.cases)
    return (f"| {claim} | {STATES[result.state]} | {cases} | {result.seed} "
            f"| {time_of(result.seconds)} | {result.compiler} | `{result.commit}` |\n")


def section(part: Part) -> str:
    command = " ".join(part.command)
    if part.environment:
        command = " ".join(f"{k}={v}" for k, v in part.environment.items()) + " " + command
    return (f"### {part.name}\n\n{part.claim}.\n\n"
            f"- Command: `{command}`\n"
            f"- Shown able to find: {part.able}\n"
            f"- Found: {part.found}\n\n")


def page(parts: Sequence[Part], results: Sequence[Result | None]) -> str:
    processors = dict.fromkeys(r.processor for r in results if r is not None)
    text = HEAD
    if processors:
        text += "Processor: " + "; ".join(processors) + ".\n\n"
    text += "| Claim | State | Cases | Seed | Time | Compiler | Commit |\n"
    text += "|---|---|---|---|---|---|---|\n"
    for part, result in zip(parts, results, strict=True):
        text += row(part, result)
    text += "\n## What was run, and what it found\n\n"
    for part in parts:
        text += section(part)
    return text.rstrip("\n") + "\n"
