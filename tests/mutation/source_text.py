# SPDX-License-Identifier: MIT
"""Tokens of C++, of lists of rows and of assembly, as far as mutation has to know them."""

import re
from dataclasses import dataclass

TOKEN = re.compile(r"""
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<string>"(?:\\.|[^"\\\n])*"|(?<![0-9A-Za-z_])'(?:\\.|[^'\\\n])+')
  | (?P<number>(?:0[xX][0-9a-fA-F']+|\d[\d']*(?:\.\d+)?(?:e-?\d+)?)[uUlLfF]*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<operator><<=|>>=|\.\.\.|->|::|\#\#|\+\+|--|&&|\|\||<<|>>|[-+*/%&|^<>=!]=|[^\s\w])
  """, re.VERBOSE | re.DOTALL)

OPENERS = {"(": ")", "[": "]", "{": "}"}


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    end: int


class SourceText:
    """A file and its tokens, without comments, without directives other than the bodies of macros,
    and without what only the compiler checks (static_assert)."""

    def __init__(self, name: str, text: str) -> None:
        self.name = name
        self.text = text
        self.tokens = self._tokens()
        self.partners = self._partners()

    def is_spaced(self, token: Token) -> bool:
        """Whether blanks stand on both sides: the formatter sets them around binary operators, and
        not around the brackets of templates or the marks of pointers."""
        before = self.text[token.start - 1:token.start]
        after = self.text[token.end:token.end + 1]
        return before.isspace() and (after.isspace() or after == "\\")

    def between(self, first: int, last: int) -> str:
        """The text of tokens `first` to `last`, inclusive."""
        return self.text[self.tokens[first].start:self.tokens[last].end]

    def _directives(self) -> list[tuple[int, int]]:
        """Stretches that no mutant touches: directives, but for the bodies of macros."""
        stretches = []
        for match in re.finditer(r"^[ \t]*#[ \t]*(\w+)(?:[^\n\\]|\\\n|\\.)*", self.text,
                                 re.MULTILINE):
            end = match.end()
            if match[1] == "define":
                name = re.match(r"[ \t]*#[ \t]*define\s+\w+(?:\([^)]*\))?", match[0])
                end = match.start() + (name.end() if name else 0)
            stretches.append((match.start(), end))
        return stretches

    def _tokens(self) -> list[Token]:
        hidden = self._directives()
        tokens = []
        for match in TOKEN.finditer(self.text):
            kind = match.lastgroup or ""
            if kind == "comment" or any(a <= match.start() < b for a, b in hidden):
                continue
            tokens.append(Token(kind, match[0], match.start(), match.end()))
        return self._without_assertions(tokens)

    @staticmethod
    def _without_assertions(tokens: list[Token]) -> list[Token]:
        kept = []
        inside = False
        for token in tokens:
            inside = inside or token.text in ("static_assert", "asm")
            if not inside:
                kept.append(token)
            if token.text == ";":
                inside = False
        return kept

    def _partners(self) -> dict[int, int]:
        """Of each bracket the one that belongs to it, by their places among the tokens."""
        partners = {}
        stack: list[int] = []
        for i, token in enumerate(self.tokens):
            if token.text in OPENERS:
                stack.append(i)
            elif token.text in OPENERS.values():
                if stack and OPENERS[self.tokens[stack[-1]].text] == token.text:
                    opener = stack.pop()
                    partners[opener], partners[i] = i, opener
        return partners
