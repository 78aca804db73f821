# SPDX-License-Identifier: MIT
"""What is fuzzed, and by which fuzzers."""
