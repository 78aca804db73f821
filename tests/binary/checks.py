# SPDX-License-Identifier: MIT
"""What a claim is checked with: it fails with a message, or prints its measure."""

from collections import Counter
from collections.abc import Iterable


class Failure(Exception):
    """What breaks a claim."""


def measure(what: str, count: object) -> None:
    print(f"{what}: {count}")


def require(holds: bool, otherwise: str) -> None:
    if not holds:
        raise Failure(otherwise)


def same(what: str, got: list[str], want: list[str]) -> None:
    """The two lists must be equal, and not empty."""
    require(bool(want), f"{what}: nothing expected, so nothing is shown")
    if got != want:
        missing = [f"- {item}" for item in (Counter(want) - Counter(got)).elements()]
        unexpected = [f"+ {item}" for item in (Counter(got) - Counter(want)).elements()]
        differences = missing + unexpected or ["the order"]
        raise Failure("\n".join([f"{what} differ:", *differences]))
    measure(what, len(got))


def none(what: str, found: Iterable[str]) -> None:
    """Nothing may have been found."""
    listed = list(found)
    require(not listed, "\n".join([f"{what}:", *listed]))
