# SPDX-License-Identifier: MIT
"""As much of Conan 2 as the recipes use, for machines that do not have it."""

import os
import subprocess
from typing import Any, Dict, List, Optional, Union

Value = Union[str, bool, None]


class Values:
    """Settings or options."""

    def __init__(self, values: Dict[str, Value]) -> None:
        self.values = dict(values)

    def get_safe(self, name: str) -> Value:
        return self.values.get(name)

    def rm_safe(self, name: str) -> None:
        self.values.pop(name, None)


class CppInfo:
    def __init__(self) -> None:
        self.libs: List[str] = []
        self.properties: Dict[str, str] = {}

    def set_property(self, name: str, value: str) -> None:
        self.properties[name] = value


class BuildInfo:
    bindir = ""


class Cpp:
    def __init__(self) -> None:
        self.build = BuildInfo()


class ConanFile:
    # What a recipe states; what it finds in them later are Values.
    settings: Any
    options: Any

    def __init__(self, recipe_folder: str, work: str, settings: Dict[str, Value],
                 options: Dict[str, Value]) -> None:
        self.settings = Values(settings)
        self.options = Values(options)
        self.recipe_folder = recipe_folder
        self.export_sources_folder = os.path.join(work, "source")
        self.source_folder = self.export_sources_folder
        self.build_folder = os.path.join(work, "build")
        self.package_folder = os.path.join(work, "package")
        self.tested_reference_str = "pxmcc90lgc/9.0.0"
        self.cache_variables: Dict[str, Union[str, bool]] = {}
        self.required: List[str] = []
        self.cpp_info = CppInfo()
        self.cpp = Cpp()

    def requires(self, reference: str) -> None:
        self.required.append(reference)

    def run(self, command: str, env: Optional[str] = None) -> None:
        assert env == "conanrun"
        subprocess.run(command, shell=True, check=True)
