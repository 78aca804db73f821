# SPDX-License-Identifier: MIT
"""Conan's errors."""


class ConanInvalidConfiguration(Exception):
    pass
