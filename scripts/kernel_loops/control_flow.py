# SPDX-License-Identifier: MIT
"""The ways through a function. Instructions are numbers, their places in it."""

import re
from collections.abc import Iterable, Set

from kernel_loops.instructions import Instruction, whole

Follow = list[list[int]]  # for each instruction those that may come next

CHANGED_BY_CALLS = {"rax", "rcx", "rdx", "rsi", "rdi", "r8", "r9", "r10", "r11"}


def successors(code: list[Instruction]) -> Follow:
    """For each instruction those that may come next in the function."""
    places = {it.address: place for place, it in enumerate(code)}
    follow = []
    for place, it in enumerate(code):
        after = []
        if it.name.startswith("j") and it.target in places:
            after.append(places[it.target])
        if place + 1 < len(code) and it.name not in ("jmp", "ret"):
            after.append(place + 1)
        follow.append(after)
    return follow


def reachable(start: int, follow: Follow) -> set[int]:
    reached, pending = set(), [start]
    while pending:
        place = pending.pop()
        if place not in reached:
            reached.add(place)
            pending += follow[place]
    return reached


def cycles(places: Set[int], follow: Follow) -> list[set[int]]:
    """The largest sets of these places that lead to one another: Tarjan's strongly connected
    components."""
    found: list[set[int]] = []
    number: dict[int, int] = {}  # in the order of the visits
    lowest: dict[int, int] = {}  # the lowest number that a place leads back to
    path: list[int] = []         # visited, and not yet in a component
    on_path: set[int] = set()

    def enter(place: int) -> Iterable[int]:
        number[place] = lowest[place] = len(number)
        path.append(place)
        on_path.add(place)
        return (to for to in follow[place] if to in places and to not in number)

    def leave(place: int) -> None:
        targets = [to for to in follow[place] if to in places]
        lowest[place] = min([lowest[place]] + [lowest[to] for to in targets if to in on_path])
        if lowest[place] == number[place]:
            start = path.index(place)
            body = set(path[start:])
            del path[start:]
            on_path.difference_update(body)
            if len(body) > 1 or place in targets:
                found.append(body)

    for root in sorted(places):
        pending = [(root, False)]
        while pending:
            place, is_done = pending.pop()
            if is_done:
                leave(place)
            elif place not in number:
                pending.append((place, True))
                pending += [(to, False) for to in enter(place)]
    return found


def stack_pointers(code: list[Instruction], follow: Follow, at_start: Set[str]) -> list[Set[str]]:
    """For each instruction what points to the stack, whichever way leads there: registers, and
    places in memory that keep one."""
    pointers: dict[int, Set[str]] = {0: at_start}
    pending = [0]
    while pending:
        place = pending.pop()
        after = pointers_after(code[place], pointers[place])
        for to in follow[place]:
            joined = pointers[to] & after if to in pointers else after
            if joined != pointers.get(to):
                pointers[to] = joined
                pending.append(to)
    return [pointers.get(place, set()) for place in range(len(code))]


def pointers_after(it: Instruction, pointers: Set[str]) -> Set[str]:
    """What points to the stack after an instruction."""
    if it.name == "call":
        return pointers - CHANGED_BY_CALLS
    if it.name in ("add", "sub", "push") or not it.operands:
        # The sum of a pointer and an index is a pointer.
        is_sum = it.name == "add" and whole(it.operands[0]) in pointers
        return pointers | {whole(it.operands[1])} if is_sum else pointers
    target = whole(it.operands[-1])
    if target == "rsp" or not it.writes(target):
        return pointers
    base = re.fullmatch(r"(?:-?0x\w+)?\((%\w+)[^)]*\)", it.operands[0])
    keeps = (it.name == "mov" and whole(it.operands[0]) in pointers
             or it.name == "lea" and base is not None and whole(base[1]) in pointers)
    return pointers | {target} if keeps else pointers - {target}
