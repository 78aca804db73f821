# SPDX-License-Identifier: MIT
"""What is printed of the kernels: a line each, as values with commas or as a table."""

import csv
import sys
from typing import NamedTuple

from kernel_loops.kernels import Kernel, stored_bytes_per_pixel
from kernel_loops.loops import COUNTS, Counts

CSV_HEAD = ["kernel", "pixels", *COUNTS, "ops_per_pixel", "bound_cycles_per_pixel"]
CSV_MEASURED = ["measured_cycles_per_pixel", "percent_of_bound"]
TABLE_HEAD = ["Kernel", "pixels", "ops", *COUNTS[1:], "ops/px", "bound"]
TABLE_MEASURED = ["cycles", "%"]


class Report(NamedTuple):
    subject: str  # the name of the variant or level
    library: str
    a_cycle: int  # vector operations that the processor starts in a cycle
    cycles: dict[int, float] | None  # measured, by the address of the kernel
    kernels: list[tuple[Kernel, Counts]]

    def lines(self) -> list[list[str]]:
        return sorted(self.line(kernel, counts) for kernel, counts in self.kernels)

    def line(self, kernel: Kernel, counts: Counts) -> list[str]:
        pixels = counts["bytes"] / stored_bytes_per_pixel(kernel)
        operations = counts["operations"] / pixels
        bound = operations / self.a_cycle
        line = [kernel.name, f"{pixels:g}", *(str(counts[key]) for key in COUNTS),
                f"{operations:.2f}", f"{bound:.3f}"]
        if self.cycles is not None:
            best = self.cycles.get(kernel.address)
            line += [f"{best:.3f}", f"{100 * bound / best:.0f}"] if best else ["", ""]
        return line

    def print_csv(self) -> None:
        head = CSV_HEAD + (CSV_MEASURED if self.cycles is not None else [])
        csv.writer(sys.stdout, lineterminator="\n").writerows([head, *self.lines()])

    def print_table(self) -> None:
        print(f"""Kernels of {self.subject} in {self.library}.
An iteration of the main loop has so many pixels; vector operations, loads, stores and moves or
zeros of registers; scalar instructions. Of all these so many use the stack. Where an iteration has
a choice, the way that stores most counts.
Bound: cycles for a pixel, {self.a_cycle} vector operations in each.""")
        head = TABLE_HEAD
        if self.cycles is not None:
            head = head + TABLE_MEASURED
            print("Cycles: the fewest measured at any size, and the bound as their percentage.")
        table = [head, *self.lines()]
        widths = [max(map(len, column)) for column in zip(*table)]
        for name, *values in table:
            print(name.ljust(widths[0]),
                  *(value.rjust(width) for value, width in zip(values, widths[1:])))
