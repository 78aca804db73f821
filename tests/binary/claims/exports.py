# SPDX-License-Identifier: MIT
"""Claims about the names that the library exports."""

import re

from checks import require, same
from claims.subject import Subject


def are_exactly_the_list(subject: Subject) -> None:
    same("exported names", exported_names(subject), sorted(subject.lists.exports()))


def are_exactly_the_header(subject: Subject) -> None:
    same("exported names", exported_names(subject), subject.lists.header_names())


def have_the_version_of_the_interface(subject: Subject) -> None:
    """The names, and the soname by which a program finds the library."""
    versions = {symbol.name.partition("@")[2] for symbol in subject.library.versioned_exports}
    same("versions of names", sorted(versions), ["@PXMCC90LGC_9"])
    sonames = [line.split()[-1] for line in subject.library.dynamic_section() if "(SONAME)" in line]
    same("sonames", sonames, ["[libpxmcc90lgc.so.9]"])


def have_the_ordinals_of_the_list(subject: Subject) -> None:
    want = [f"{ordinal} {name}" for ordinal, name in enumerate(subject.lists.exports(), 1)]
    same("exports and ordinals", parse_ordinals(subject.library.pe_headers()), want)


def exported_names(subject: Subject) -> list[str]:
    return sorted(symbol.name for symbol in subject.library.exports)


def parse_ordinals(headers: list[str]) -> list[str]:
    """Of each row in the table of names that objdump prints: ordinal and name."""
    bases = [line.split()[2] for line in headers if line.startswith("Ordinal Base")]
    require(len(bases) == 1, "no base of ordinals")
    rows = iter(headers)
    found = []
    for line in rows:
        if line.startswith("[Ordinal/Name Pointer] Table"):
            break
    for line in rows:
        match = re.fullmatch(r"\t\[ *(\d+)\] (\S+)", line)
        if not match:
            break
        found.append(f"{int(match[1]) + int(bases[0])} {match[2]}")
    return found
