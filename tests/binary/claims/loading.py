# SPDX-License-Identifier: MIT
"""Claims about how the system loads the library."""

import re

from checks import Failure, measure, none, require
from claims.subject import Subject
from reading import tools
from reading.disassembly import disassemble
from reading.symbols import symbols


def no_text_relocation(subject: Subject) -> None:
    library = subject.library
    none("text relocations", containing("TEXTREL", library.dynamic_section()))
    text = library.section(".text")
    for place in library.relocations.targets:
        require(not text.has(place), f"relocation inside .text at {place:x}")


def full_relro(subject: Subject) -> None:
    segments = containing("GNU_RELRO", subject.library.program_headers())
    require(len(segments) == 1, "no RELRO segment")
    require(bool(containing("BIND_NOW", subject.library.dynamic_section())), "not bound at load")


def stack_is_not_executable(subject: Subject) -> None:
    # The flags stand before the last field, the alignment.
    flags = [line.split()[-2] for line in subject.library.program_headers()
             if line.split()[:1] == ["GNU_STACK"]]
    require(flags == ["RW"], f"stack flags {flags}")


def one_constructor(subject: Subject) -> None:
    library = subject.library
    dynamic = library.dynamic_section()
    sizes = [line.split()[2] for line in containing("INIT_ARRAYSZ", dynamic)]
    require(sizes == ["8"], "not one constructor")
    none("other start or stop code",
         (line for line in dynamic if re.search(r"\((INIT|FINI|FINI_ARRAY|PREINIT_ARRAY)\)", line)))
    constructor = library.relocations.targets.get(library.section(".init_array").address)
    found = [symbol for symbol in library.symbols
             if symbol.address == constructor and "atLoad" in symbol.name]
    require(constructor is not None and len(found) == 1, "the constructor is not atLoad")


def no_dependency(subject: Subject) -> None:
    none("needed libraries", containing("NEEDED", subject.library.dynamic_section()))
    none("undefined symbols",
         (symbol.name for symbol in symbols("-D", "--undefined-only", subject.library.path)))


def nothing_can_be_interposed(subject: Subject) -> None:
    """Every relocation is an address of our own; a symbol that another object could take over is
    none."""
    relocations = subject.library.relocations
    none("relocations by name", relocations.others)
    none("calls through the linkage table",
         containing("@plt", disassemble(subject.library.path).splitlines()))
    measure("relocations", len(relocations.targets))


def no_import(subject: Subject) -> None:
    none("imports", (line for line in subject.library.pe_headers()
                     if re.search(r"DLL Name:(?! pxmcc90lgc)", line)))


def pages_may_lie_anywhere_and_none_is_written_and_executed(subject: Subject) -> None:
    facts = "\n".join(subject.library.pe_headers())
    for fact in ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT"):
        require(fact in facts, f"no {fact}")
    require("relocations stripped" not in facts, "it cannot be moved")
    none("code that can be written", (line for line in section_flags(subject)
                                      if "CODE" in line and "READONLY" not in line))


def section_flags(subject: Subject) -> list[str]:
    """The lines of objdump with the flags of sections."""
    found = containing("CONTENTS", tools.lines("objdump", "-h", subject.library.path))
    if not found:
        raise Failure("no section")
    return found


def containing(word: str, lines: list[str]) -> list[str]:
    return [line for line in lines if word in line]
