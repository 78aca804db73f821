# SPDX-License-Identifier: MIT
"""Readers of what is audited: the library, its objects, their code, and the lists in the source."""
