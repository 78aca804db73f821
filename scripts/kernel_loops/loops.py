# SPDX-License-Identifier: MIT
"""The loops of functions, and what an iteration consists of."""

from __future__ import annotations

import re
from collections import Counter
from collections.abc import Iterable, Set
from functools import cached_property
from graphlib import TopologicalSorter
from typing import NamedTuple, TypeAlias

from kernel_loops.control_flow import Follow, cycles, reachable, stack_pointers, successors
from kernel_loops.instructions import Disassembly, Instruction, whole
from kernel_loops.operations import is_store, kind, stored_bytes

# What is counted of an iteration, beside the bytes that it stores.
COUNTS = ("operations", "loads", "stores", "moves", "scalar", "stack")
Counts = Counter[str]

# A step of an iteration: an instruction, or an inner loop as a whole. After the last comes None.
Step: TypeAlias = "int | Loop"
# A byte in memory: the values of registers that its address is made from, and its distance.
Byte: TypeAlias = tuple[tuple[tuple[str, int | None], ...], int]


class Way(NamedTuple):
    """What a step and those after it do."""

    stored_bytes: int
    operations: int
    after: Step | None


class Program:
    """All functions of a library, by their addresses."""

    def __init__(self, disassembly: Disassembly) -> None:
        self.code, self.names = disassembly.functions, disassembly.names
        self.known: dict[int, list[Loop]] = {}

    def loops(self, address: int) -> list[Loop]:
        """The loops of a function, each also among those inside another."""
        if address not in self.known:
            self.known[address] = Function(self, self.code[address], {"rsp"}).loops()
        return self.known[address]

    def part(self, address: int | None, pointers: Set[str]) -> Loop | None:
        """A function without loops, which is a part of the loop that calls it."""
        if address is None or not self.code.get(address) or self.loops(address):
            return None
        function = Function(self, self.code[address], pointers)
        return Loop(function, 0, reachable(0, function.follow))

    def called(self, address: int) -> set[int]:
        """The functions that one calls or jumps to."""
        return {it.target for it in self.code[address]
                if it.name in ("call", "jmp") and it.target in self.code}

    def reached(self, address: int) -> list[int]:
        """A function and all that are called on its way."""
        found, pending = {address}, [address]
        while pending:
            new = self.called(pending.pop()) - found
            found |= new
            pending += new
        return sorted(found)


class Function:
    """A function with what may come next, and what points to the stack, at each instruction."""

    def __init__(self, program: Program, code: list[Instruction], pointers: Set[str]) -> None:
        self.program, self.code = program, code
        self.follow: Follow = successors(code)
        self.pointers = pointers

    @cached_property
    def stack_pointers(self) -> list[Set[str]]:
        return stack_pointers(self.code, self.follow, self.pointers)

    def loops(self) -> list[Loop]:
        if not self.code:
            return []
        reached = reachable(0, self.follow)
        return [loop for outer in self.loops_within(reached, reached) for loop in outer.all()]

    def loops_within(self, places: Set[int], reached: Set[int]) -> list[Loop]:
        """The outermost loops of some places, with those inside them."""
        found = []
        for body in cycles(places, self.follow):
            entered = {to for place in reached - body for to in self.follow[place]}
            loop = Loop(self, min(entered & body or body), body)
            loop.inner = self.loops_within(body - {loop.first}, reached)
            found.append(loop)
        return found

    def is_on_stack(self, place: int) -> bool:
        """Whether the instruction there reads or writes the stack."""
        it = self.code[place]
        return (it.name != "lea" and bool(it.address_registers)
                and it.address_registers[0] in self.stack_pointers[place])

    def stored_at(self, place: int) -> set[Byte]:
        """The bytes that the store there writes. Stores may overlap; those whose addresses are
        made from the same values of registers can be compared."""
        it = self.code[place]
        values = tuple((register, self.last_write(place, register))
                       for register in it.address_registers)
        offset = re.match(r"-?0x[0-9a-f]+", it.operands[-1])
        start = int(offset[0], 16) if offset else 0
        return {(values, start + i) for i in range(stored_bytes(it))}

    def last_write(self, place: int, register: str) -> int | None:
        """The place above where a register gets its value; None if it comes with the call."""
        return next((i for i in range(place - 1, -1, -1) if self.code[i].writes(register)), None)

    def constant(self, place: int | None) -> int | None:
        """What the instruction there sets its target to, if that is a constant."""
        if place is None:
            return None
        it = self.code[place]
        if it.name.startswith("mov"):
            match = re.fullmatch(r"\$(-?0x[0-9a-f]+)", it.operands[0])
            return int(match[1], 16) if match else None
        return 0 if it.name == "xor" and it.operands[0] == it.operands[1] else None


class Loop:
    """Instructions that lead to one another, wherever the compiler has put them; an iteration
    starts with `first`."""

    def __init__(self, function: Function, first: int, body: set[int]) -> None:
        self.function, self.first, self.body = function, first, body
        self.inner: list[Loop] = []

    def all(self) -> list[Loop]:
        """The loop and those inside it."""
        return [self, *(loop for inner in self.inner for loop in inner.all())]

    def own(self) -> list[int]:
        """The instructions that are in no inner loop."""
        return sorted(self.body.difference(*(loop.body for loop in self.inner)))

    def fixed_iterations(self) -> int | None:
        """The number of iterations, if it is constant: rows or channels of one block."""
        code = self.function.code
        for place in self.own():
            test = code[place]
            if (test.name.startswith("cmp") and test.operands[0].startswith("$")
                    and place + 1 in self.body
                    and not self.body.issuperset(self.function.follow[place + 1])):
                end = int(test.operands[0][1:], 16)
                counted = self.iterations_until(whole(test.operands[1]), end)
                if counted is not None:
                    return counted
        return None

    def iterations_until(self, counter: str, end: int) -> int | None:
        """The number of iterations until a register has a value, if it starts with a constant and
        is changed at one place."""
        function = self.function
        start = function.constant(function.last_write(min(self.body), counter))
        changes = [place for place in self.own() if function.code[place].writes(counter)]
        if start is None or len(changes) != 1:
            return None
        if function.constant(changes[0]) == end:
            return 2
        change = function.code[changes[0]]
        if change.name == "add" and change.operands[0].startswith("$"):
            return (end - start) // int(change.operands[0][1:], 16)
        return None

    def counts(self) -> Counts:
        """Of an iteration."""
        return self.counts_of(self.main_way())

    def main_way(self) -> list[Step]:
        """The steps of an iteration. Of several ways the one that stores most, then the one with
        the most vector operations."""
        start, ways = self.steps()
        best: dict[Step | None, Way] = {None: Way(0, 0, None)}
        for step in TopologicalSorter(ways).static_order():
            if step is not None:
                after = max(ways[step], key=lambda to: best[to][:2])
                counts = self.counts_of([step])
                best[step] = Way(best[after].stored_bytes + counts["bytes"],
                                 best[after].operations + counts["operations"], after)
        way = []
        at: Step | None = start
        while at is not None:
            way.append(at)
            at = best[at].after
        return way

    def steps(self) -> tuple[Step, dict[Step, list[Step | None]]]:
        """The first step, and for each those that may come next. Without the way back to the first
        instruction, and with inner loops as one step each, no way leads to where it was."""
        step_of: dict[int, Step] = {place: loop for loop in self.inner for place in loop.body}
        ways: dict[Step, list[Step | None]] = {}
        for place in sorted(self.body):
            step = step_of.get(place, place)
            after = ways.setdefault(step, [])
            follow = self.function.follow[place]
            if not follow or self.first in follow:
                after.append(None)
            after += [step_of.get(to, to) for to in follow
                      if to in self.body and to != self.first and step_of.get(to, to) is not step]
        return step_of.get(self.first, self.first), ways

    def counts_of(self, steps: Iterable[Step]) -> Counts:
        """Of some steps, with the parts that they call and the inner loops whose iterations are
        known."""
        function = self.function
        total = Counts()
        written: set[Byte] = set()
        for step in steps:
            if isinstance(step, Loop):
                add(total, step, step.fixed_iterations() or 0)
                continue
            it = function.code[step]
            total += self.counts_of_one(step)
            if is_store(it) and not function.is_on_stack(step):
                written |= function.stored_at(step)
            if it.name == "call":
                add(total, function.program.part(it.target, function.stack_pointers[step]), 1)
        total["bytes"] += len(written)
        return total

    def counts_of_one(self, place: int) -> Counts:
        it = self.function.code[place]
        counts = Counts(stack=int(self.function.is_on_stack(place)))
        if it.is_vector:
            counts[kind(it)] += 1
        elif not it.name.startswith("nop"):
            counts["scalar"] += 1
        return counts


def add(total: Counts, part: Loop | None, times: int) -> None:
    """Adds what a part of an iteration does so many times."""
    if part and times:
        for key, value in part.counts().items():
            total[key] += value * times
