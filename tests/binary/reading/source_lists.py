# SPDX-License-Identifier: MIT
"""The lists in the source that the library is made from."""

import os
import re
from functools import cached_property
from typing import NamedTuple

from checks import require
from reading import tools


class Variant(NamedTuple):
    level: str        # of its kernels
    depth_level: str  # of its depth kernels
    needs: list[str]  # features


def preprocess(text: str, *options: str) -> str:
    return tools.output(os.environ.get("CC") or "cc", "-E", "-P", *options, "-x", "c", "-",
                        given=text)


class SourceLists:
    def __init__(self, source: str) -> None:
        self.source = source

    def rows(self, file: str, *macros: str) -> list[str]:
        """What the rows of a list become by the macros given."""
        definitions = "".join(f"#define {macro};\n" for macro in macros)
        text = preprocess(f'{definitions}#include "{file}"\n', "-I", self.source)
        return [row for row in re.sub(r"\s", "", text).split(";") if row]

    def exports(self) -> list[str]:
        """In the order of the list, which is that of the ordinals."""
        return self.rows("frame/conversions.def", "SERVICE(name) legacy90pxmcc##name",
                         "CONVERSION(name, family) legacy90pxmi##name")

    def dispatched(self) -> dict[str, str]:
        """The exports that have an entry for each variant, by their short names."""
        rows = self.rows("frame/conversions.def", "SERVICE(name)",
                         "DISPATCHED_SERVICE(name) name,legacy90pxmcc##name",
                         "CONVERSION(name, family) name,legacy90pxmi##name")
        return dict(row.split(",") for row in rows)

    def entries(self, tag: str) -> list[str]:
        return sorted(self.rows("frame/conversions.def", f"CONVERSION(name, family) name##_{tag}"))

    def kernels(self, level: str, *families: str) -> list[str]:
        """The kernels of some families, as a level's functions."""
        macro = f"KERNEL(name, ...) pxm::{level}::name"
        return sorted(row for family in families
                      for row in self.rows(f"{family}/kernels.def", macro))

    def header_names(self) -> list[str]:
        """The exports that the public header declares."""
        text = preprocess('#include "pxmcc90lgc.h"\n', "-I", os.path.join(self.source, "include"))
        return sorted(re.findall(r"legacy90[A-Za-z0-9_]*", text))

    @cached_property
    def variants(self) -> dict[str, Variant]:
        """The table of variants in slot order, by their tags."""
        table = "frame/variants.def"
        found = {}
        for row in self.rows(table, "VARIANT(tag, kernels, depth_kernels, needs, ...) "
                                    "tag,kernels,depth_kernels,needs"):
            tag, level, depth_level, needs = row.split(",")
            features = [need.removeprefix("feature") for need in needs.split("|")]
            found[tag] = Variant(level, depth_level, [f for f in features if f != "None"])
        with open(os.path.join(self.source, table), encoding="ascii") as file:
            rows = sum(line.startswith("VARIANT(") for line in file)
        require(len(found) == rows > 1, f"{len(found)} variants in the table")
        return found
