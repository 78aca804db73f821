# SPDX-License-Identifier: MIT
"""A change of a file's text."""

from dataclasses import dataclass

from mutation.source_text import Token


@dataclass(frozen=True)
class Edit:
    """What stands from `start` to `end` becomes `text`."""

    start: int
    end: int
    text: str

    def applied(self, source: str) -> str:
        return source[:self.start] + self.text + source[self.end:]


def replaced(token: Token, text: str) -> Edit:
    return Edit(token.start, token.end, text)
