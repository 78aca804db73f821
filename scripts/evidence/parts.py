# SPDX-License-Identifier: MIT
"""What is to be proved: the claims, and the command that tries each."""

from __future__ import annotations

from dataclasses import dataclass, field

# What every part depends on.
LIBRARY = ("CMakeLists.txt", "cmake", "decode", "depth", "encode", "frame", "include", "twist",
           "vector")
# What tests of the linked objects are made from, beside their own files.
TESTS = ("catalogue", "tests/CMakeLists.txt", "tests/oracle", "tests/support")

# What comes instead of this word of a command: the seconds that are left, for parts that go on
# another time where they stopped.
SECONDS = "{seconds}"
# How such a part ends that has to go on.
UNFINISHED = 75


@dataclass(frozen=True)
class Part:
    """A row of the table."""

    name: str
    claim: str
    command: tuple[str, ...]
    # Files and directories of which a change makes the part due again, beside the library's.
    inputs: tuple[str, ...]
    minutes: float  # about how long it takes on two cores
    able: str  # how it was shown able to find
    found: str  # what it has found so far
    compilers: tuple[str, ...] = ("g++",)
    # Presets and targets of them that are built first; that time is not the part's.
    builds: tuple[tuple[str, tuple[str, ...]], ...] = ()
    environment: dict[str, str] = field(default_factory=dict)

    def depends_on(self) -> tuple[str, ...]:
        return LIBRARY + self.inputs
