# SPDX-License-Identifier: MIT
"""The operators of mutation that change a token: each yields the places of a file and what may
stand there instead."""

import re
from collections.abc import Iterator

from mutation.edits import Edit, replaced
from mutation.source_text import SourceText, Token

COMPARISONS = {"<": ("<=", ">"), "<=": ("<", ">="), ">": (">=", "<"), ">=": (">", "<="),
               "==": ("!=", "<="), "!=": ("==", "<")}
ARITHMETIC = {"+": ("-",), "-": ("+",), "*": ("+",), "/": ("*",), "%": ("/",), "&": ("|",),
              "|": ("&",), "^": ("|",), "&&": ("||",), "||": ("&&",)}
ASSIGNMENTS = {"+=": ("-=",), "-=": ("+=",), "*=": ("+=",), "|=": ("&=",), "&=": ("|=",),
               "<<=": (">>=",), ">>=": ("<<=",), "++": ("--",), "--": ("++",)}

# Parts of names of intrinsics, between underscores.
INTRINSIC_ARITHMETIC = {
    "add": "sub", "sub": "add", "adds": "subs", "subs": "adds", "and": "or", "or": "and",
    "andnot": "and", "unpacklo": "unpackhi", "unpackhi": "unpacklo", "packs": "packus",
    "packus": "packs", "mulhi": "mullo", "mullo": "mulhi", "mulhrs": "mulhi", "max": "min",
    "min": "max", "avg": "add", "mul": "add", "shufflelo": "shufflehi", "shufflehi": "shufflelo",
    "movelh": "movehl", "movehl": "movelh", "blendv": "and", "xor": "or"}
INTRINSIC_SHIFTS = {"srli": "slli", "slli": "srli", "srai": "srli"}
INTRINSIC_COMPARISONS = {"cmpgt": "cmpeq", "cmpeq": "cmpgt", "cmplt": "cmpgt"}

# The library's own names of operations and of members, by pairs that stand for like things.
OPERATIONS = {"LaneMulHiU": "LaneMulHi", "LaneMulHi": "LaneMulHiU", "minimum": "maximum",
              "interleaveLowBytes": "interleaveHighBytes",
              "interleaveHighBytes": "interleaveLowBytes",
              "interleaveLowLanes": "interleaveHighLanes",
              "interleaveHighLanes": "interleaveLowLanes",
              "inHighBytes": "upperInHighBytes", "upperInHighBytes": "inHighBytes"}
SHIFTS = {"shiftRight": "shiftRightLogical", "shiftRightLogical": "shiftRight"}
MEMBERS = {"red": "blue", "blue": "red", "green": "red", "cb": "cr", "cr": "cb",
           "first": "second", "second": "first", "third": "first", "width": "height",
           "height": "width", "even": "odd", "odd": "even", "low": "high", "high": "low",
           "src": "dst", "dst": "src", "srcStep": "dstStep", "dstStep": "srcStep"}


def _number(token: Token, change: int) -> str | None:
    match = re.fullmatch(r"(0[xX][0-9a-fA-F']+|[\d'.]+(?:e-?\d+)?)([uUlLfF]*)", token.text)
    if match is None:
        return None
    digits, suffix = match[1].replace("'", ""), match[2]
    if digits[:2] in ("0x", "0X"):
        return f"{int(digits, 16) + change:#x}{suffix}"
    if "." in digits or "e" in digits:
        return f"{float(digits) + change}{suffix}"
    value = int(digits) + change
    return f"{value}{suffix}" if value >= 0 else f"({value}{suffix})"


def _is_nowhere(source: SourceText, i: int) -> bool:
    """Whether a number is the 1 of a byte -1 in a shuffle: every negative byte there is alike."""
    if source.tokens[i].text != "1" or i == 0 or source.tokens[i - 1].text != "-":
        return False
    opener = source.text.rfind("(", 0, source.tokens[i].start)
    return source.text[:opener].endswith("set_epi8") or source.text[:opener].endswith("setr_epi8")


def constants(source: SourceText) -> Iterator[Edit]:
    """Numbers one more and one less, the two truth values, the first letter of a text."""
    for i, token in enumerate(source.tokens):
        if token.kind == "number":
            for change in (1, -1):
                if change == 1 and _is_nowhere(source, i):
                    continue
                changed = _number(token, change)
                if changed is not None:
                    yield replaced(token, changed)
        elif token.text in ("true", "false"):
            yield replaced(token, "false" if token.text == "true" else "true")
        elif token.kind == "string" and len(token.text) > 2 and token.text != '"C"':
            letter = chr(ord(token.text[1]) ^ 1)
            if letter.isalnum():
                yield replaced(token, token.text[0] + letter + token.text[2:])


def _intrinsic(token: Token, changes: dict[str, str]) -> Iterator[Edit]:
    match = re.fullmatch(r"(_mm(?:256)?_)([a-z]+)(_\w+|)", token.text)
    if match and match[2] in changes:
        yield replaced(token, match[1] + changes[match[2]] + match[3])


def _named(source: SourceText, names: dict[str, str],
           intrinsics: dict[str, str]) -> Iterator[Edit]:
    for i, token in enumerate(source.tokens):
        if token.kind != "word":
            continue
        yield from _intrinsic(token, intrinsics)
        if token.text in names and i + 1 < len(source.tokens) \
                and source.tokens[i + 1].text in ("(", "<"):
            yield replaced(token, names[token.text])


def shifts(source: SourceText) -> Iterator[Edit]:
    """Directions, and amounts that are no numbers, by one more and one less."""
    opposite = {"<<": ">>", ">>": "<<"}
    for i, token in enumerate(source.tokens):
        if token.text in opposite and source.is_spaced(token):
            yield replaced(token, opposite[token.text])
            if source.tokens[i + 1].kind != "number":
                yield replaced(token, f"{token.text} 1 {token.text}")
                yield replaced(token, f"{opposite[token.text]} 1 {token.text}")
    yield from _named(source, SHIFTS, INTRINSIC_SHIFTS)


def comparisons(source: SourceText) -> Iterator[Edit]:
    """Comparisons to their neighbours."""
    for token in source.tokens:
        if token.text in COMPARISONS and source.is_spaced(token):
            for other in COMPARISONS[token.text]:
                yield replaced(token, other)
    yield from _named(source, {}, INTRINSIC_COMPARISONS)


def _is_operand(token: Token) -> bool:
    return token.kind in ("word", "number") and token.text != "return" or token.text in (")", "]")


def arithmetic(source: SourceText) -> Iterator[Edit]:
    """An operation in place of another; a sign or a complement dropped."""
    previous = None
    for token in source.tokens:
        is_binary = previous is not None and _is_operand(previous) and source.is_spaced(token)
        if token.text in ARITHMETIC and is_binary:
            for other in ARITHMETIC[token.text]:
                yield replaced(token, other)
        elif token.text in ASSIGNMENTS:
            for other in ASSIGNMENTS[token.text]:
                yield replaced(token, other)
        elif token.text in ("-", "~") and not (previous and _is_operand(previous)):
            yield replaced(token, "")
        previous = token
    yield from _named(source, OPERATIONS, INTRINSIC_ARITHMETIC)


def members(source: SourceText) -> Iterator[Edit]:
    """A member in place of another of its kind."""
    for before, token in zip(source.tokens, source.tokens[1:]):
        if before.text in (".", "->") and token.text in MEMBERS:
            yield replaced(token, MEMBERS[token.text])
