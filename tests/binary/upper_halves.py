# SPDX-License-Identifier: MIT
"""What functions do to the upper halves of the vector registers, which a 256-bit instruction makes
dirty and vzeroupper clears. Every way through the code counts, with the calls and tail calls on
it."""

import re
from collections.abc import Iterable

from reading.disassembly import Function, Instruction


class Code:
    """The instructions of a function, and their places by address."""

    def __init__(self, function: Function) -> None:
        self.start = function.address
        self.name = function.name
        self.instructions = function.instructions()
        self.places = {it.address: place for place, it in enumerate(self.instructions)}
        self.is_wide = "%ymm" in function.body
        self.targets = {it.target for it in self.instructions if it.name.startswith(("call", "j"))}


class UpperHalves:
    """Kernels are named with their level and without parameters: pxm::LEVEL::NAME."""

    def __init__(self, functions: Iterable[Function]) -> None:
        self.functions = {function.address: Code(function) for function in functions}
        self.kernels = [(match[1], code) for code in self.functions.values()
                        if (match := re.match(r"(pxm::[a-z0-9_]+::[A-Za-z0-9]+)\(", code.name))]
        self.known: dict[tuple[int, bool], bool] = {}

    def wide_kernels(self) -> list[str]:
        """The kernels that use 256-bit registers, or call a function that does."""
        return [name for name, kernel in self.kernels
                if any(code.is_wide for code in self.reached([kernel]))]

    def wide_outside_kernels(self) -> list[str]:
        """The functions with 256-bit registers that no kernel calls."""
        reached = {code.start for code in self.reached(code for _, code in self.kernels)}
        return sorted(code.name for code in self.functions.values()
                      if code.is_wide and code.start not in reached)

    def clearing_kernels(self) -> list[str]:
        """The kernels that return with clean halves, whatever these were before the call."""
        return [name for name, kernel in self.kernels
                if not self.returns_dirty(kernel.start, True)]

    def unclean(self) -> list[str]:
        """The functions with 256-bit registers that may make clean halves dirty."""
        return sorted(code.name for code in self.functions.values()
                      if code.is_wide and self.returns_dirty(code.start, False))

    def reached(self, starts: Iterable[Code]) -> list[Code]:
        """Some functions and all that they call or jump to."""
        found = {code.start: code for code in starts}
        pending = list(found.values())
        while pending:
            for target in pending.pop().targets:
                if target in self.functions and target not in found:
                    found[target] = self.functions[target]
                    pending.append(found[target])
        return list(found.values())

    def returns_dirty(self, start: int | None, dirty: bool) -> bool:
        """Whether a function may return with dirty halves when it is called with such."""
        if start not in self.functions:
            return True  # an unknown place
        if (start, dirty) not in self.known:
            self.known[start, dirty] = True  # what calls itself is not understood
            self.known[start, dirty] = self.may_end_dirty(self.functions[start], dirty)
        return self.known[start, dirty]

    def may_end_dirty(self, code: Code, dirty_at_start: bool) -> bool:
        """Follows every way through a function. A place that is reached with clean and with dirty
        halves counts as reached with dirty ones."""
        reached: dict[int, bool] = {}
        pending = [(0, dirty_at_start)]
        while pending:
            place, dirty = pending.pop()
            if place == len(code.instructions):
                return True  # it runs on into whatever follows
            if place in reached and reached[place] >= dirty:
                continue
            reached[place] = dirty
            it = code.instructions[place]
            dirty = self.dirty_after(it, dirty)
            if it.name.startswith("ret"):
                if dirty:
                    return True
                continue
            if it.name.startswith(("ud2", "hlt", "int3")):
                continue
            if it.name.startswith("j"):
                if it.target in code.places:
                    pending.append((code.places[it.target], dirty))
                elif self.returns_dirty(it.target, dirty):
                    return True
                if it.name == "jmp":
                    continue
            pending.append((place + 1, dirty))
        return False

    def dirty_after(self, it: Instruction, dirty: bool) -> bool:
        """Whether the halves are dirty after an instruction, or after the function it calls."""
        if it.name in ("vzeroupper", "vzeroall"):
            return False
        if it.name == "call":
            return self.returns_dirty(it.target, dirty)
        return dirty or "%ymm" in it.text
