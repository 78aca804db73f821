# SPDX-License-Identifier: MIT
"""The claims, in the order of what an hour of each finds."""

from evidence.parts import Part

PACKAGES = ("g++", "clang", "cmake", "git", "libgtest-dev", "libpng-dev")
PARTS: tuple[Part, ...] = ()
