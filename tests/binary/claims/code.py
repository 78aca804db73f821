# SPDX-License-Identifier: MIT
"""Claims about the instructions that the library is made of."""

import re
from collections import Counter

from checks import Failure, measure, none, require, same
from claims.subject import Subject
from instruction_sets import InstructionSet
from reading.disassembly import disassemble, parse_instructions
from upper_halves import UpperHalves


def instructions_of_frame(subject: Subject) -> None:
    """The frame runs everywhere, and detects what the processor has."""
    check_instructions(subject.objects, [], detects=True)


def instructions_of_entries(subject: Subject) -> None:
    """The entries run everywhere."""
    check_instructions(subject.objects, [])


def instructions_of_kernels(subject: Subject) -> None:
    """TAG OBJECT...: the kernels of a variant run where its needs are met."""
    tag = subject.first_word("tag")
    require(tag in subject.lists.variants, f"no variant {tag}")
    objects, _ = subject.split_objects(1)
    check_instructions(objects, subject.lists.variants[tag].needs)


def check_instructions(objects: list[str], needs: list[str], detects: bool = False) -> None:
    allowed = InstructionSet(needs, detects)
    found: Counter[str] = Counter()
    count = 0
    for it in parse_instructions(disassemble(*objects)):
        count += 1
        found.update(allowed.objections(it))
    require(count > 100, f"only {count} instructions")
    none(" and ".join(["beyond the baseline", *needs]),
         [f"{times} {what}" for what, times in sorted(found.items())][:20])
    measure("instructions", count)


def wide_stack_moves_are_unaligned(subject: Subject) -> None:
    """The stack is aligned to 16 bytes."""
    stack_with_wide = re.compile(r"%ymm.*\(%r[sb]p|\(%r[sb]p.*%ymm")
    moves = [it for it in parse_instructions(disassemble(*subject.objects))
             if stack_with_wide.search(it.text)]
    none("moves that want 32", (str(it) for it in moves
                                if re.match(r"vmov(dqa|ap[sd]|ntdq)", it.name)))
    measure("moves of 32 bytes", len(moves))


def upper_halves_of(subject: Subject) -> UpperHalves:
    return UpperHalves(subject.library.functions("-C"))


def wide_registers_are_in_kernels_that_may_use_them(subject: Subject) -> None:
    """LEVEL:FAMILY..."""
    want = []
    for word in subject.words:
        level, _, family = word.partition(":")
        want += subject.lists.kernels(level, family)
    halves = upper_halves_of(subject)
    same("kernels with 256-bit registers", sorted(halves.wide_kernels()), sorted(want))
    none("elsewhere", halves.wide_outside_kernels())


def upper_halves_are_cleared(subject: Subject) -> None:
    """Of every function with 256-bit registers, on every way to its end."""
    halves = upper_halves_of(subject)
    none("not on every way", halves.unclean())
    kernels = halves.wide_kernels()
    require(bool(kernels), "no kernel has 256-bit registers, so nothing is shown")
    measure("kernels", len(kernels))


def twist_kernels_clear_upper_halves(subject: Subject) -> None:
    """In every level that has them, whether or not it uses them."""
    levels = {variant.level for variant in subject.lists.variants.values()
              if "Avx" in variant.needs}
    if not levels:
        raise Failure("no level has 256-bit registers")
    want = sorted(kernel for level in levels for kernel in subject.lists.kernels(level, "twist"))
    clearing = upper_halves_of(subject).clearing_kernels()
    same("kernels that always clear", sorted(set(clearing) & set(want)), want)
