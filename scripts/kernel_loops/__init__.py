# SPDX-License-Identifier: MIT
"""What the compiler made of the kernels' main loops, read from the disassembled library."""
