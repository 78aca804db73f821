# SPDX-License-Identifier: MIT
"""Conan's tools."""
