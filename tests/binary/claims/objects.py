# SPDX-License-Identifier: MIT
"""Claims about the object files that the library is linked from, and about sizes."""

import os
import re
import tempfile

from checks import measure, none, require, same
from claims.subject import Subject
from reading import tools
from reading.symbols import links, names, symbols


def no_weak_symbol(subject: Subject) -> None:
    if subject.library.is_pe:
        headers = tools.lines("objdump", "-h", *subject.objects)
        none("sections that the linker may merge",
             (line for line in headers if "LINK_ONCE" in line))
    found = symbols("-C", *subject.objects)
    none("weak or unique symbols", (symbol.name for symbol in found if symbol.kind in "WVwvu"))
    measure("symbols", len(found))


def no_clone(subject: Subject) -> None:
    found = symbols(*subject.objects)
    none("clones", (symbol.name for symbol in found
                    if re.search(r"\.(constprop|isra|part|cold)", symbol.name)))
    measure("symbols", len(found))


def kernels_are_exactly_those_of_the_lists(subject: Subject) -> None:
    """LEVEL OBJECT... -- OBJECT...: all that they use besides is in the second objects, the
    tables."""
    level = subject.first_word("level")
    objects, tables = subject.split_objects(1)
    variants = subject.lists.variants.values()
    families = []
    if any(variant.level == level for variant in variants):
        families += ["decode", "encode", "twist"]
    if any(variant.depth_level == level for variant in variants):
        families += ["depth"]
    of_kernels = links(objects, subject.library.is_pe)
    same("kernels", of_kernels.given, hidden_functions(subject.lists.kernels(level, *families)))
    of_tables = links(tables, subject.library.is_pe)
    none("used besides tables",
         sorted({*names(of_kernels.asked)} - {*names(of_tables.given)}))


def entries_are_exactly_those_of_the_list(subject: Subject) -> None:
    """TAG OBJECT...: all that they use is the kernels of the variant's levels."""
    tag = subject.first_word("tag")
    objects, _ = subject.split_objects(1)
    of_entries = links(objects, subject.library.is_pe)
    same("entries", of_entries.given, hidden_functions(subject.lists.entries(tag)))
    level, depth_level, _ = subject.lists.variants[tag]
    kernels = sorted(subject.lists.kernels(level, "decode", "encode", "twist")
                     + subject.lists.kernels(depth_level, "depth"))
    same("kernels called", of_entries.asked, [f"GLOBAL NOTYPE HIDDEN {name}" for name in kernels])


def hidden_functions(of_names: list[str]) -> list[str]:
    return [f"GLOBAL FUNC HIDDEN {name}" for name in of_names]


def tables_are_constants(subject: Subject) -> None:
    tables = links(subject.objects, subject.library.is_pe)
    none("other than hidden tables",
         (link for link in tables.given if not link.startswith("GLOBAL OBJECT HIDDEN ")))
    none("used", tables.asked)
    require(code_bytes(subject.objects) == 0, "code beside the tables")
    constants = sorted(s.name for s in symbols("-C", *subject.objects) if s.kind == "R")
    same("tables that nobody can write", constants, sorted(names(tables.given)))


def kernels_are_smaller(subject: Subject) -> None:
    """PERCENT OBJECT... -- OBJECT...: those of the first objects have at most so much of the
    code."""
    percent = int(subject.first_word("percentage"))
    objects, others = subject.split_objects(1)
    small, large = code_bytes(objects), code_bytes(others)
    require(0 < 100 * small <= percent * large,
            f"{small} bytes, which is more than {percent} % of {large}")
    measure("bytes", f"{small} of {large}")


def code_bytes(objects: list[str]) -> int:
    """The size of all code in some objects."""
    return sum(int(line.split()[1]) for line in tools.lines("size", "-A", "-d", *objects)
               if line.startswith(".text"))


def stripped_size(subject: Subject) -> None:
    """BYTES: the library without symbols is no larger."""
    limit = int(subject.first_word("size"))
    with tempfile.TemporaryDirectory() as directory:
        stripped = os.path.join(directory, "stripped")
        tools.output("strip", "-o", stripped, subject.library.path)
        size = os.path.getsize(stripped)
    require(size <= limit, f"{size} bytes, which is more than {limit}")
    measure("bytes", f"{size} of {limit}")
