# SPDX-License-Identifier: MIT
"""Copying and removing, by patterns of paths below a directory."""

import fnmatch
import os
import shutil

from conan import ConanFile


def copy(conanfile: ConanFile, pattern: str, src: str, dst: str, excludes: str = "") -> int:
    del conanfile
    count = 0
    for directory, _, names in os.walk(src):
        for name in names:
            path = os.path.relpath(os.path.join(directory, name), src)
            if fnmatch.fnmatch(path, pattern) and not fnmatch.fnmatch(path, excludes):
                target = os.path.join(dst, path)
                os.makedirs(os.path.dirname(target), exist_ok=True)
                shutil.copy2(os.path.join(src, path), target)
                count += 1
    return count


def rmdir(conanfile: ConanFile, path: str) -> None:
    del conanfile
    shutil.rmtree(path, ignore_errors=True)
