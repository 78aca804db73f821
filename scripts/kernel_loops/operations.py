# SPDX-License-Identifier: MIT
"""What single instructions count as."""

import re

from kernel_loops.instructions import Instruction

FULL_MOVES = r"v?(mov(dqa|dqu|aps|ups|apd|upd)|lddqu)"
STORES = FULL_MOVES + r"|v?mov([dq]|s[sd]|[lh]p[sd]|nt\w+)|vextract[fi]128"
LOADS = FULL_MOVES + r"|v?mov([dq]|s[sd]|ddup)|vp?broadcast([dq]|s[sd]|[fi]128)"

# Of stores that write less than the register.
VECTOR_WIDTHS = ((r"v?mov(d|ss)$|v?pextrd", 4), (r"v?mov(q|sd|[lh]p[sd])$|v?pextrq", 8),
                 (r"v?pextrb", 1), (r"v?pextrw", 2), (r"vextract", 16))
REGISTER_WIDTHS = ((r"%ymm", 32), (r"%xmm", 16), (r"%(r[a-z]+|r\d+)$", 8), (r"%(e..|r\d+d)$", 4),
                   (r"%(\w[xip]|r\d+w)$", 2), (r"%(\w[lh]|\w\wl|r\d+b)$", 1))
SUFFIX_WIDTHS = {"b": 1, "w": 2, "l": 4, "q": 8}


def kind(it: Instruction) -> str:
    """What a vector instruction is."""
    if it.is_to_memory and re.fullmatch(STORES, it.name):
        return "stores"
    if it.memory and not it.is_to_memory and re.fullmatch(LOADS, it.name):
        return "loads"
    makes_zero = re.match("v?p?xor", it.name) and it.operands[0] == it.operands[1]
    if not it.memory and (makes_zero or re.fullmatch(FULL_MOVES, it.name)):
        return "moves"
    return "operations"


def is_store(it: Instruction) -> bool:
    return it.is_to_memory and (it.is_vector or it.name.startswith("mov"))


def stored_bytes(it: Instruction) -> int:
    """How many bytes a store writes."""
    if it.is_vector:
        for pattern, size in VECTOR_WIDTHS:
            if re.match(pattern, it.name):
                return size
    for pattern, size in REGISTER_WIDTHS:
        if re.match(pattern, it.operands[0]):
            return size
    return SUFFIX_WIDTHS[it.name[-1]]
