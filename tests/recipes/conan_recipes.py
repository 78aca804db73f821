# SPDX-License-Identifier: MIT
"""Runs the recipes for Conan in the order in which Conan does: conan_recipes.py SOURCE_DIR WORK"""

import importlib.util
import os
import shutil
import sys
from typing import Dict, Tuple, Type

from conan import ConanFile, Value
from conan.errors import ConanInvalidConfiguration

LINUX: Dict[str, Value] = {"os": "Linux", "arch": "x86_64", "compiler": "gcc",
                           "compiler.cppstd": "17", "compiler.libcxx": "libstdc++11",
                           "build_type": "Release"}


def recipe_class(path: str, name: str) -> Type[ConanFile]:
    spec = importlib.util.spec_from_file_location("recipe", path)
    assert spec is not None and spec.loader is not None
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    found = getattr(module, name)
    assert isinstance(found, type) and issubclass(found, ConanFile)
    return found


def run(recipe: ConanFile, *steps: str) -> None:
    for step in steps:
        getattr(recipe, step)()


def check_validation(recipe: Type[ConanFile], folder: str, work: str) -> None:
    """What cannot be built is rejected, and what can is not."""
    wanted: Tuple[Tuple[bool, Dict[str, Value], bool], ...] = (
        (True, {}, True), (True, {}, False), (False, {"arch": "armv8"}, False),
        (False, {"os": "Macos"}, True), (False, {"compiler": "msvc"}, True),
        (True, {"os": "Windows"}, True), (False, {"os": "Windows"}, False))
    for valid, changes, shared in wanted:
        values: Dict[str, Value] = {**LINUX, **changes}
        try:
            run(recipe(folder, work, values, {"shared": shared}), "validate")
            taken = True
        except ConanInvalidConfiguration:
            taken = False
        assert taken == valid, (changes, shared)


def check_package(recipe: Type[ConanFile], folder: str, work: str) -> ConanFile:
    made = recipe(folder, work, LINUX, {"shared": True})
    run(made, "export_sources", "configure", "validate", "layout", "generate", "build", "package",
        "package_info")
    assert made.cpp_info.libs == ["pxmcc90lgc"]
    assert made.cpp_info.properties["cmake_target_name"] == "pxmcc90lgc::pxmcc90lgc"
    files = sorted(os.path.relpath(os.path.join(directory, name), made.package_folder)
                   for directory, _, names in os.walk(made.package_folder) for name in names)
    assert files == ["include/pxmcc90lgc.h", "lib/libpxmcc90lgc.so", "lib/libpxmcc90lgc.so.9",
                     "lib/libpxmcc90lgc.so.9.0.0", "licenses/LICENSE"], files
    return made


def write_package_files(library: ConanFile, folder: str) -> None:
    """What Conan's CMakeDeps generator makes of package_info()."""
    os.makedirs(folder)
    properties = library.cpp_info.properties
    with open(os.path.join(folder, properties["cmake_file_name"] + "-config.cmake"), "w",
              encoding="ascii") as file:
        file.write("add_library(%s SHARED IMPORTED)\n" % properties["cmake_target_name"])
        file.write("set_target_properties(%s PROPERTIES IMPORTED_LOCATION %s/lib/lib%s.so"
                   " INTERFACE_INCLUDE_DIRECTORIES %s/include)\n"
                   % (properties["cmake_target_name"], library.package_folder,
                      library.cpp_info.libs[0], library.package_folder))


def main() -> None:
    source, work = sys.argv[1:]
    shutil.rmtree(work, ignore_errors=True)
    folder = os.path.join(source, "packaging", "conan")
    recipe = recipe_class(os.path.join(folder, "conanfile.py"), "Pxmcc90lgcRecipe")
    check_validation(recipe, folder, work)
    library = check_package(recipe, folder, work)

    write_package_files(library, os.path.join(work, "deps"))
    os.environ["CMAKE_VARIABLES"] = "CMAKE_PREFIX_PATH=" + os.path.join(work, "deps")
    folder = os.path.join(folder, "test_package")
    test = recipe_class(os.path.join(folder, "conanfile.py"), "TestPackage")(
        folder, os.path.join(work, "test"), LINUX, {})
    test.source_folder = folder
    run(test, "requirements", "layout", "build", "test")
    assert test.required == ["pxmcc90lgc/9.0.0"]


if __name__ == "__main__":
    main()
