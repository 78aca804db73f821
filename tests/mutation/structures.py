# SPDX-License-Identifier: MIT
"""The operators of mutation that change more than a token: conditions, statements, operands,
checks, block plans and rows of lists."""

import re
from collections.abc import Iterator

from mutation.edits import Edit, replaced
from mutation.source_text import SourceText

# What begins a statement that cannot be dropped, or that declares something.
KEPT = {"using", "template", "struct", "class", "enum", "namespace", "constexpr", "const", "static",
        "return", "typename", "extern", "public", "private", "typedef", "inline", "constinit",
        "friend", "case", "default", "else", "union", "int", "auto", "PXM_INLINE", "PXM_SHARED"}


# Calls whose operands may be exchanged.
COMMUTATIVE = re.compile(r"_mm(256)?_(adds?|m?add|mul(lo|hi|hrs)?|and|or|xor|avg|cmpeq)_\w+"
                         r"|_mm(256)?_(min|max)_ep\w+|LaneMulHiU?|average")


def _condition(source: SourceText, opener: int) -> Edit | None:
    """The negation of what stands in brackets, after the declaration that may stand first."""
    closer = source.partners.get(opener)
    if closer is None or closer == opener + 1:
        return None
    first = opener + 1
    for i in range(opener + 1, closer):
        if source.tokens[i].text == ";":
            first = i + 1
    start, end = source.tokens[first].start, source.tokens[closer - 1].end
    return Edit(start, end, f"!({source.text[start:end]})")


def _end_of_arm(source: SourceText, start: int, ends: str) -> int | None:
    i = start
    while i < len(source.tokens):
        text = source.tokens[i].text
        if text in ends:
            return i - 1
        if text in "([{" and i in source.partners:
            i = source.partners[i]
        elif text == "?":
            return None
        i += 1
    return None


def conditions(source: SourceText) -> Iterator[Edit]:
    """Conditions negated, arms of a choice exchanged, negations dropped."""
    for i, token in enumerate(source.tokens[:-2]):
        following = source.tokens[i + 1]
        if token.text in ("if", "while"):
            opener = i + 2 if following.text == "constexpr" else i + 1
            edit = _condition(source, opener)
            if edit is not None:
                yield edit
        elif token.text == "?":
            end = _end_of_arm(source, i + 1, ":")
            other_end = _end_of_arm(source, end + 2, ",;)}]") if end is not None else None
            if end is not None and other_end is not None:
                first, second = source.between(i + 1, end), source.between(end + 2, other_end)
                yield Edit(following.start, source.tokens[other_end].end, f"{second} : {first}")
        elif token.text == "!":
            yield replaced(token, "")


def statements(source: SourceText) -> Iterator[Edit]:
    """Statements of expressions dropped."""
    start = 0
    i = 0
    while i < len(source.tokens):
        token = source.tokens[i]
        if token.text == ";":
            if i > start and _may_be_dropped(source, start, i):
                yield Edit(source.tokens[start].start, source.tokens[i - 1].end, "")
            start = i + 1
        elif token.text in "{}" or token.text in ("else", "do"):
            start = i + 1
        elif token.text in "([" and i in source.partners:
            control = i > 0 and source.tokens[i - 1].text in ("if", "while", "for", "constexpr")
            i = source.partners[i]
            if control or source.between(i - 1, i) == "]]":
                start = i + 1
        i += 1


def _may_be_dropped(source: SourceText, start: int, end: int) -> bool:
    words = source.tokens[start:end]
    if words[0].text in KEPT or not (words[0].kind == "word" or words[0].text in ("++", "--", "*")):
        return False
    second = words[1] if len(words) > 1 else None
    if second is None or second.kind == "word" or words[0].text in ("break", "continue"):
        return words[0].text in ("break", "continue")
    return any(word.text in ("(", "=", "++", "--") or word.text.endswith("=") for word in words)


def _operand_before(source: SourceText, i: int) -> int | None:
    """The first token of the operand that ends at token i."""
    first = None
    while i >= 0:
        token = source.tokens[i]
        if token.text in (")", "]") and i in source.partners:
            i = source.partners[i]
        elif token.kind not in ("word", "number") or token.text == "return":
            break
        first = i
        before = source.tokens[i - 1] if i else None
        if before is None:
            break
        if before.text in (".", "->", "::"):
            i -= 2
        elif token.text in ("(", "[") or source.tokens[i].text in ("(", "["):
            i -= 1
            if source.tokens[i].kind != "word" or source.tokens[i].text == "return":
                break
        else:
            break
    return first


def _operand_after(source: SourceText, i: int) -> int | None:
    """The last token of the operand that begins at token i."""
    last = None
    while i < len(source.tokens):
        token = source.tokens[i]
        if token.text in ("(", "[") and i in source.partners:
            last = source.partners[i]
        elif token.kind in ("word", "number") and (last is None or
                                                   source.tokens[i - 1].text in (".", "->", "::")):
            last = i
        else:
            break
        i = last + 1
        if i < len(source.tokens) and source.tokens[i].text in (".", "->", "::"):
            i += 1
    return last


def operands(source: SourceText) -> Iterator[Edit]:
    """Operands exchanged: of subtractions and divisions, and neighbours in lists in brackets."""
    if source.name.endswith(".def"):
        return  # `rows` has these
    for i, token in enumerate(source.tokens):
        if token.text in ("-", "/", "%") and source.is_spaced(token):
            first, last = _operand_before(source, i - 1), _operand_after(source, i + 1)
            if first is not None and last is not None:
                yield Edit(source.tokens[first].start, source.tokens[last].end,
                           f"{source.between(i + 1, last)} {token.text} "
                           f"{source.between(first, i - 1)}")
        elif token.text in ("(", "{") and i in source.partners:
            yield from _neighbours(source, i)


def _neighbours(source: SourceText, opener: int) -> Iterator[Edit]:
    if opener and COMMUTATIVE.fullmatch(source.tokens[opener - 1].text):
        return
    closer = source.partners[opener]
    pieces = []
    first = i = opener + 1
    while i <= closer:
        text = source.tokens[i].text
        if text in ("([{") and i in source.partners:
            i = source.partners[i]
        elif text == ";":
            return
        elif text == "," or i == closer:
            if i == first:
                return
            pieces.append((first, i - 1))
            first = i + 1
        i += 1
    if any(_is_declaration(source, *piece) for piece in pieces):
        return
    for a, b in zip(pieces, pieces[1:]):
        left, right = source.between(*a), source.between(*b)
        if left != right:
            gap = source.text[source.tokens[a[1]].end:source.tokens[b[0]].start]
            yield Edit(source.tokens[a[0]].start, source.tokens[b[1]].end, right + gap + left)


def _is_declaration(source: SourceText, first: int, last: int) -> bool:
    """Whether tokens are a parameter, or a piece of what stands in the brackets of a template."""
    texts = [token.text for token in source.tokens[first:last + 1]]
    kinds = [token.kind for token in source.tokens[first:last + 1]]
    is_typed = len(texts) > 1 and kinds[-1] == "word" and (kinds[-2] == "word"
                                                           or texts[-2] in ("&", "*", ">"))
    return is_typed or texts.count("<") != texts.count(">")


def checks(source: SourceText) -> Iterator[Edit]:
    """Neighbours in the order of an entry's checks exchanged."""
    pattern = re.compile(r"(?=(Check::\w+)(,\s*)(Check::\w+))")
    for match in pattern.finditer(source.text):
        yield Edit(match.start(1), match.end(3), match[3] + match[2] + match[1])


def plans(source: SourceText) -> Iterator[Edit]:
    """Block plans: main blocks and bound of twice and half the size, other smaller blocks."""
    pattern = re.compile(r"\{(\d+), ~(\d+), (\{[^{}]*\})\}")
    for match in pattern.finditer(source.text):
        main, bound, smaller = int(match[1]), int(match[2]), match[3]
        others = [(2 * main, bound, smaller), (main // 2, bound, smaller),
                  (main, 2 * bound + 1, smaller), (main, bound // 2, smaller)]
        others += [(main, bound, blocks) for blocks in ("{}", "{8}", "{4}", "{2}", "{8, 4}",
                                                        "{4, 2}", "{16, 8}")
                   if blocks != smaller]
        for a, b, c in others:
            yield Edit(match.start(), match.end(), f"{{{a}, ~{b}, {c}}}")


def _cells(row: str) -> list[tuple[int, int]]:
    """Where the cells of a row stand, by the commas outside all brackets but the row's own."""
    cells = []
    depth = 0
    start = row.index("(") + 1
    for i in range(start, len(row)):
        if row[i] in "(<":
            depth += 1
        elif row[i] in ")>" and depth:
            depth -= 1
        elif row[i] in ",)" and not depth:
            cells.append((start, i))
            start = i + 1
    return cells


def rows(source: SourceText) -> Iterator[Edit]:
    """Cells of a row replaced by what the next row has that differs."""
    if not source.name.endswith(".def"):
        return
    lists: dict[str, list[tuple[int, list[tuple[int, int]]]]] = {}
    for match in re.finditer(r"^([A-Z_]+)\([a-zA-Z0-9].*?\)$", source.text,
                             re.MULTILINE | re.DOTALL):
        lists.setdefault(match[1], []).append((match.start(), _cells(match[0])))
    for same in lists.values():
        for place, (start, cells) in enumerate(same):
            for column, (a, b) in enumerate(cells[1:], 1):
                cell = source.text[start + a:start + b].strip()
                for other_start, others in same[place + 1:] + same[:place]:
                    if column >= len(others):
                        continue
                    x, y = others[column]
                    other = source.text[other_start + x:other_start + y].strip()
                    if other != cell:
                        yield Edit(start + a, start + b, f" {other}")
                        break


def instructions(source: SourceText) -> Iterator[Edit]:
    """Instructions and directives of assembly dropped."""
    if not source.name.endswith((".S", ".inc")):
        return
    for match in re.finditer(r"^[ \t]+([a-z.]\w*)\b[^\n\\;]*", source.text, re.MULTILINE):
        yield Edit(match.start(1), match.end(), "")
