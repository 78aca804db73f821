# SPDX-License-Identifier: MIT
"""The recipe for Conan 2: conan create packaging/conan [-o "pxmcc90lgc/*:shared=True"]

It exports the source that it lies in. A recipe in an index has conandata.yml and source() with
conan.tools.files.get in place of export_sources(); the rest stays.
"""

import os
from typing import Any

from conan import ConanFile
from conan.errors import ConanInvalidConfiguration
from conan.tools.cmake import CMake, CMakeToolchain, cmake_layout
from conan.tools.files import copy, rmdir

SOURCES = ("CMakeLists.txt", "*.md", "LICENSE", "cmake/*", "decode/*", "depth/*", "docs/*.md",
           "encode/*", "frame/*", "include/*", "twist/*", "vector/*")


class Pxmcc90lgcRecipe(ConanFile):
    name = "pxmcc90lgc"
    version = "9.0.0"
    description = "Image colour conversions for 64-bit x86"
    license = "MIT"
    topics = ("color", "yuv", "ycbcr", "rgb565", "dither", "simd")
    package_type = "library"
    # Conan makes objects of what is stated here.
    settings: Any = "os", "arch", "compiler", "build_type"
    # Static code is position-independent too, so there is no fPIC.
    options: Any = {"shared": [True, False]}
    default_options = {"shared": False}

    def export_sources(self) -> None:
        root = os.path.join(self.recipe_folder, "..", "..")
        for pattern in SOURCES:
            copy(self, pattern, root, self.export_sources_folder, excludes="build/*")

    def configure(self) -> None:
        # The interface is C, whatever C++ its inside is.
        self.settings.rm_safe("compiler.cppstd")
        self.settings.rm_safe("compiler.libcxx")

    def validate(self) -> None:
        if self.settings.get_safe("arch") != "x86_64":
            raise ConanInvalidConfiguration("pxmcc90lgc is for 64-bit x86")
        system = self.settings.get_safe("os")
        if system not in ("Linux", "Windows"):
            raise ConanInvalidConfiguration("pxmcc90lgc is for Linux and Windows")
        if self.settings.get_safe("compiler") not in ("gcc", "clang"):
            raise ConanInvalidConfiguration("pxmcc90lgc is built by GCC or Clang")
        if system == "Windows" and not self.options.get_safe("shared"):
            raise ConanInvalidConfiguration("pxmcc90lgc is shared on Windows")

    def layout(self) -> None:
        cmake_layout(self)

    def generate(self) -> None:
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["PXMCC90LGC_INSTALL"] = True
        toolchain.generate()

    def build(self) -> None:
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self) -> None:
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))
        CMake(self).install()
        # Conan makes the files by which others find the library.
        for directory in (("lib", "cmake"), ("lib", "pkgconfig"), ("share",)):
            rmdir(self, os.path.join(self.package_folder, *directory))

    def package_info(self) -> None:
        self.cpp_info.libs = ["pxmcc90lgc"]
        self.cpp_info.set_property("cmake_file_name", "pxmcc90lgc")
        self.cpp_info.set_property("cmake_target_name", "pxmcc90lgc::pxmcc90lgc")
        self.cpp_info.set_property("pkg_config_name", "pxmcc90lgc")
