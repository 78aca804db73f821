# SPDX-License-Identifier: MIT
"""CMake, run as Conan runs it."""

import os
import subprocess
from typing import Dict, Union

from conan import ConanFile


def cmake_layout(conanfile: ConanFile) -> None:
    conanfile.cpp.build.bindir = conanfile.build_folder


class CMakeToolchain:
    def __init__(self, conanfile: ConanFile) -> None:
        self.conanfile = conanfile
        self.cache_variables: Dict[str, Union[str, bool]] = {}

    def generate(self) -> None:
        self.conanfile.cache_variables = self.cache_variables


class CMake:
    def __init__(self, conanfile: ConanFile) -> None:
        self.conanfile = conanfile

    def configure(self) -> None:
        variables = dict(self.conanfile.cache_variables)
        variables["CMAKE_BUILD_TYPE"] = "Release"
        variables["BUILD_SHARED_LIBS"] = bool(self.conanfile.options.get_safe("shared"))
        variables["CMAKE_INSTALL_PREFIX"] = self.conanfile.package_folder
        variables["CMAKE_INSTALL_LIBDIR"] = "lib"
        for word in os.environ.get("CMAKE_VARIABLES", "").split():
            name, _, text = word.partition("=")
            variables[name] = text
        words = ["-D%s=%s" % (name, value) for name, value in variables.items()]
        self.cmake("-S", self.conanfile.source_folder, "-B", self.conanfile.build_folder, *words)

    def build(self) -> None:
        self.cmake("--build", self.conanfile.build_folder, "--parallel", "2")

    def install(self) -> None:
        self.cmake("--install", self.conanfile.build_folder)

    @staticmethod
    def cmake(*words: str) -> None:
        subprocess.run([os.environ.get("CMAKE", "cmake"), *words], check=True)
