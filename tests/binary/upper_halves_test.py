# SPDX-License-Identifier: MIT
"""The ways through made-up functions."""

import unittest

from reading.disassembly import parse_functions
from upper_halves import UpperHalves

WIDE = "vaddps %ymm0,%ymm1,%ymm2"


def halves_of(**functions: list[str]) -> UpperHalves:
    """Of functions at 1000, 2000 and so on, with an instruction at each address."""
    listing = ""
    for number, (name, code) in enumerate(functions.items(), 1):
        listing += f"\n{number * 0x1000:016x} <pxm::level::{name}(int)>:\n"
        for place, instruction in enumerate(code):
            listing += f"    {number * 0x1000 + place:x}:\t{instruction}\n"
    return UpperHalves(parse_functions(listing))


class Ways(unittest.TestCase):
    def assert_dirty(self, *code: str, after_clean: bool, after_dirty: bool) -> None:
        halves = halves_of(Kernel=list(code))
        self.assertEqual((halves.returns_dirty(0x1000, False), halves.returns_dirty(0x1000, True)),
                         (after_clean, after_dirty))

    def test_code_in_a_row(self) -> None:
        self.assert_dirty("ret", after_clean=False, after_dirty=True)
        self.assert_dirty(WIDE, "ret", after_clean=True, after_dirty=True)
        self.assert_dirty(WIDE, "vzeroupper", "repz ret", after_clean=False, after_dirty=False)
        self.assert_dirty("vzeroall", WIDE, "ret", after_clean=True, after_dirty=True)

    def test_one_of_two_ways(self) -> None:
        self.assert_dirty("je 1002 <k+2>", "vzeroupper", "ret",
                          after_clean=False, after_dirty=True)
        self.assert_dirty("je 1003 <k+3>", WIDE, "vzeroupper", "ret",
                          after_clean=False, after_dirty=True)
        self.assert_dirty("je 1002 <k+2>", WIDE, "ret", after_clean=True, after_dirty=True)

    def test_loop(self) -> None:
        # The second iteration begins with dirty halves.
        self.assert_dirty("je 1003 <k+3>", WIDE, "jmp 1000 <k>", "ret",
                          after_clean=True, after_dirty=True)
        self.assert_dirty("je 1004 <k+4>", WIDE, "vzeroupper", "jmp 1000 <k>", "vzeroupper", "ret",
                          after_clean=False, after_dirty=False)

    def test_unknown_ends(self) -> None:
        self.assert_dirty("nop", after_clean=True, after_dirty=True)
        self.assert_dirty("jmp *%rax", after_clean=True, after_dirty=True)
        self.assert_dirty("call 9000 <away>", "ret", after_clean=True, after_dirty=True)
        self.assert_dirty("jne 9000 <away>", "vzeroupper", "ret",
                          after_clean=True, after_dirty=True)

    def test_traps_do_not_return(self) -> None:
        self.assert_dirty(WIDE, "ud2", after_clean=False, after_dirty=False)

    def test_recursion_is_not_understood(self) -> None:
        self.assert_dirty("vzeroupper", "call 1000 <k>", "ret", after_clean=True, after_dirty=True)

    def test_calls_and_tail_calls(self) -> None:
        halves = halves_of(Calls=["call 3000 <c>", "ret"], Jumps=["jmp 3000 <c>"],
                           Clears=["vzeroupper", "ret"], Keeps=["jmp 5000 <n>"], Nothing=["ret"])
        clearing = [f"pxm::level::{name}" for name in ("Calls", "Jumps", "Clears")]
        self.assertEqual(halves.clearing_kernels(), clearing)


class Users(unittest.TestCase):
    def test_kernel_and_what_it_calls(self) -> None:
        halves = halves_of(Outer=["call 3000 <i>", "ret"], Own=[WIDE, "ret"],
                           Inner=["jmp 2000 <o>"], Narrow=["vaddps %xmm0,%xmm1,%xmm2", "ret"])
        wide = [f"pxm::level::{name}" for name in ("Outer", "Own", "Inner")]
        self.assertEqual(halves.wide_kernels(), wide)
        self.assertEqual(halves.wide_outside_kernels(), [])
        self.assertEqual(halves.unclean(), ["pxm::level::Own(int)"])

    def test_elsewhere(self) -> None:
        text = f"\n0000000000001000 <memset>:\n    1000:\t{WIDE}\n    1004:\tret\n"
        self.assertEqual(UpperHalves(parse_functions(text)).wide_outside_kernels(), ["memset"])


if __name__ == "__main__":
    unittest.main()
