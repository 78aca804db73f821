# SPDX-License-Identifier: MIT
"""The symbols of objects and libraries."""

import re
from collections.abc import Iterable
from typing import NamedTuple

from reading import tools


class Symbol(NamedTuple):
    address: int | None  # None for one that is undefined
    kind: str
    name: str


def parse_symbols(text: str) -> list[Symbol]:
    """The symbols that nm lists."""
    found = re.findall(r"^([0-9a-f]+| +) ([A-Za-z?-]) (.+)$", text, re.MULTILINE)
    return [Symbol(None if address.isspace() else int(address, 16), kind, name)
            for address, kind, name in found]


def symbols(*arguments: str) -> list[Symbol]:
    """The symbols of the files that are among the arguments of nm."""
    return parse_symbols(tools.output("nm", *arguments))


class Links(NamedTuple):
    """The symbols that objects give to the linker, and those that they ask it for, each as "bind
    type visibility name"; functions without their parameters."""

    given: list[str]
    asked: list[str]


def links(objects: list[str], is_pe: bool) -> Links:
    if is_pe:
        return parse_pe_links(tools.output("nm", "-C", *objects))
    return parse_elf_links(tools.output("readelf", "-sWC", *objects))


def parse_elf_links(text: str) -> Links:
    """From the tables of readelf: number, value, size, type, bind, visibility, section, name."""
    given: set[str] = set()
    asked: set[str] = set()
    for line in text.splitlines():
        fields = line.split(None, 7)
        if len(fields) == 8 and re.fullmatch(r"\d+:", fields[0]) and fields[4] != "LOCAL":
            kind, bind, visibility, section, name = fields[3:]
            link = f"{bind} {kind} {visibility} {without_parameters(name)}"
            (asked if section == "UND" else given).add(link)
    return Links(sorted(given), sorted(asked))


def parse_pe_links(text: str) -> Links:
    """From the list of nm; nothing is said of hidden symbols, and all are taken for such."""
    given: set[str] = set()
    asked: set[str] = set()
    for symbol in parse_symbols(text):
        if symbol.kind.isupper():
            kind = {"U": "NOTYPE", "T": "FUNC"}.get(symbol.kind, "OBJECT")
            link = f"GLOBAL {kind} HIDDEN {without_parameters(symbol.name)}"
            (asked if symbol.kind == "U" else given).add(link)
    return Links(sorted(given), sorted(asked))


def without_parameters(name: str) -> str:
    return name.partition("(")[0]


def names(of_links: Iterable[str]) -> list[str]:
    return [link.split(" ", 3)[3] for link in of_links]
