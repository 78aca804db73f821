# SPDX-License-Identifier: MIT
"""What the claims are about."""

from typing import NamedTuple

from checks import require
from reading.library import Library
from reading.source_lists import SourceLists


class Subject(NamedTuple):
    library: Library
    lists: SourceLists
    words: list[str]  # what the claim is about besides

    @property
    def objects(self) -> list[str]:
        """The object files that all words are."""
        return self.split_objects(0)[0]

    def first_word(self, what: str) -> str:
        require(bool(self.words), f"no {what} given")
        return self.words[0]

    def split_objects(self, start: int) -> tuple[list[str], list[str]]:
        """The object files from a word on, and after "--" others to hold them against."""
        words = self.words[start:]
        end = words.index("--") if "--" in words else len(words)
        require(end > 0, "no object given")
        return words[:end], words[end + 1:]
