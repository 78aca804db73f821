# SPDX-License-Identifier: MIT
"""Facts about the build."""

from conan import ConanFile


def can_run(conanfile: ConanFile) -> bool:
    return isinstance(conanfile, ConanFile)
