# SPDX-License-Identifier: MIT
"""The built library: its symbols, sections and relocations."""

import re
from collections.abc import Iterator
from functools import cached_property
from typing import NamedTuple

from checks import Failure
from reading import tools
from reading.disassembly import Function, disassemble, parse_functions
from reading.symbols import Symbol, symbols


class Section(NamedTuple):
    address: int
    offset: int
    size: int

    def has(self, address: int) -> bool:
        return self.address <= address < self.address + self.size


class Relocations(NamedTuple):
    targets: dict[int, int]  # what is written at each place: an address of the library's own
    others: list[str]        # lines of all that are something else


def parse_sections(text: str) -> dict[str, Section]:
    """The sections in the table of readelf, by name."""
    rows = re.findall(r"^ +\[ *\d+\] (\S+) +\S+ +([0-9a-f]+) ([0-9a-f]+) ([0-9a-f]+) ", text,
                      re.MULTILINE)
    return {name: Section(*(int(number, 16) for number in numbers)) for name, *numbers in rows}


def parse_relocations(text: str) -> Relocations:
    """The relocations in the tables of readelf."""
    found = Relocations({}, [])
    for line in text.splitlines():
        fields = line.split()
        if len(fields) == 4 and fields[2] == "R_X86_64_RELATIVE":
            found.targets[int(fields[0], 16)] = int(fields[3], 16)
        elif "R_X86_64_" in line:
            found.others.append(line)
    return found


class Library:
    """Reads what a claim wants to know, each thing once."""

    def __init__(self, path: str) -> None:
        self.path = path

    @cached_property
    def is_pe(self) -> bool:
        with open(self.path, "rb") as file:
            return file.read(2) == b"MZ"

    @cached_property
    def versioned_exports(self) -> list[Symbol]:
        """Names with the version of the interface after them; a version is no export itself."""
        return [symbol for symbol in symbols("-D", "--defined-only", self.path)
                if symbol.kind != "A"]

    @cached_property
    def exports(self) -> list[Symbol]:
        return [symbol._replace(name=symbol.name.partition("@")[0])
                for symbol in self.versioned_exports]

    @cached_property
    def symbols(self) -> list[Symbol]:
        """The full symbol table."""
        return symbols(self.path)

    @cached_property
    def addresses(self) -> dict[str, int]:
        return {symbol.name: symbol.address for symbol in self.symbols
                if symbol.address is not None}

    def address_of(self, name: str) -> int:
        if name not in self.addresses:
            raise Failure(f"there is no symbol {name}")
        return self.addresses[name]

    @cached_property
    def relocations(self) -> Relocations:
        return parse_relocations(tools.output("readelf", "-rW", self.path))

    def section(self, name: str) -> Section:
        sections = parse_sections(tools.output("readelf", "-SW", self.path))
        if name not in sections:
            raise Failure(f"there is no section {name}")
        return sections[name]

    def initial_bytes(self, section: Section, address: int, count: int) -> bytes:
        """What the file holds for an address in a section."""
        with open(self.path, "rb") as file:
            file.seek(section.offset + address - section.address)
            return file.read(count)

    def dynamic_section(self) -> list[str]:
        return tools.lines("readelf", "-dW", self.path)

    def program_headers(self) -> list[str]:
        return tools.lines("readelf", "-lW", self.path)

    def pe_headers(self) -> list[str]:
        return tools.lines("objdump", "-p", self.path)

    def functions(self, *options: str) -> Iterator[Function]:
        return parse_functions(disassemble(*options, self.path))
