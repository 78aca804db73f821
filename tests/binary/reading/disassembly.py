# SPDX-License-Identifier: MIT
"""Disassembled code."""

import re
from collections.abc import Iterator
from typing import NamedTuple

from reading import tools

HEADER = re.compile(r"^([0-9a-f]+) <(.*)>:$", re.MULTILINE)
INSTRUCTION = re.compile(
    r"^ *([0-9a-f]+):\t(?:(?:notrack|bnd|repn?z?|lock|data16|cs) +)*(\S+) *(.*)$", re.MULTILINE)


class Instruction(NamedTuple):
    address: int
    name: str  # without prefixes
    text: str  # the operands, and the comment after them

    @property
    def operands(self) -> str:
        return self.text.partition("#")[0].rstrip()

    @property
    def target(self) -> int | None:
        """Where a direct jump or call leads."""
        match = re.match(r"[0-9a-f]+(?= |$)", self.text)
        return int(match[0], 16) if match else None

    def __str__(self) -> str:
        return f"{self.address:x}: {self.name} {self.text}".rstrip()


class Function(NamedTuple):
    address: int
    name: str
    body: str

    def instructions(self) -> list[Instruction]:
        return list(parse_instructions(self.body))


def parse_instructions(text: str) -> Iterator[Instruction]:
    for match in INSTRUCTION.finditer(text):
        address, name, operands = match.groups()
        yield Instruction(int(address, 16), name, operands)


def parse_functions(text: str) -> Iterator[Function]:
    headers = list(HEADER.finditer(text))
    ends = [header.start() for header in headers[1:]] + [len(text)]
    for header, end in zip(headers, ends):
        yield Function(int(header[1], 16), header[2], text[header.end():end])


def disassemble(*arguments: str) -> str:
    """The code of the files that are among the arguments of objdump."""
    return tools.output("objdump", "-d", "--no-show-raw-insn", *arguments)
